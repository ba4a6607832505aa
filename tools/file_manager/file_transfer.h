// Where files go: the target that a user named for copying, moving or renaming, and the tasks that follow.
#pragma once

#include "base/file_lookup.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// One file on its way to another name. Paths are full.
struct FileTask {
  std::string from;
  std::string to;

  friend bool operator==(const FileTask&, const FileTask&) = default;
};

// The directory that files go to, and the pattern of their names there.
struct TransferTarget {
  std::string directory;   // full, without a separator at its end
  std::string pattern;     // "*": they keep their names
  bool isMissing = false;  // the directory does not exist yet
};

// Reads the target that a user named for `count` files; relative to `directory`. An existing directory takes
// the files under their names; so does what ends in a separator, and any other name when there are several
// files. Else the last component is the new name, or its pattern. Nothing when it is no path.
[[nodiscard]] std::optional<TransferTarget> ReadTarget(FileLookup& disk, std::string_view text,
                                                       std::string_view directory, std::size_t count);

// The tasks that bring `files` there.
[[nodiscard]] std::vector<FileTask> PlanTransfer(const std::vector<std::string>& files,
                                                 const TransferTarget& target);

// The tasks that rename `files` within their directories; those that `from` does not match are left out.
[[nodiscard]] std::vector<FileTask> PlanRename(const std::vector<std::string>& files, std::string_view from,
                                               std::string_view to);

}  // namespace tarrow
