// What an engine asks about the names on a disk: the program answers through framework/file_system.h, a test
// with a table.
//
// Paths are UTF-8. A question about a name that does not exist is answered, never thrown.
#pragma once

#include "base/progress.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// The attribute bits of a file, numbered as the platform numbers them.
enum FileAttribute : std::uint32_t {
  kAttributeReadOnly = 0x1,
  kAttributeHidden = 0x2,
  kAttributeSystem = 0x4,
  kAttributeDirectory = 0x10,
  kAttributeArchive = 0x20,
  kAttributeNormal = 0x80,  // reported by itself when no other bit is set
  kAttributeReparsePoint = 0x400,
};

struct DirectoryEntry {
  std::string name;  // without its directory, in the case it has on disk
  std::uint32_t attributes = 0;
  std::uint64_t size = 0;
  std::uint64_t modified = 0;  // in units of 100 nanoseconds since 1601, UTC

  bool IsDirectory() const { return (attributes & kAttributeDirectory) != 0; }
};

// What is done with each entry that a search of a directory finds.
using EntryUse = std::function<void(DirectoryEntry&& entry)>;

class FileLookup {
 public:
  virtual ~FileLookup() = default;

  // The attribute bits of a file or directory, or nothing when it cannot be read.
  [[nodiscard]] virtual std::optional<std::uint32_t> Attributes(std::string_view path) = 0;

  // Whether the drive of a name such as "c:\x" is one that the system knows.
  [[nodiscard]] virtual bool IsDriveKnown(char letter) = 0;

  // The full form of `path`, or nothing when it has none or is too long (260 characters).
  [[nodiscard]] virtual std::optional<std::string> FullPath(std::string_view path) = 0;

  // Calls `use` for everything that a path with wildcards in its last component finds, "." and ".." included.
  // Polls `progress`, which may be null, while the disk takes its time. What it or `use` throws ends the
  // search.
  virtual void Find(std::string_view pattern, Progress* progress, const EntryUse& use) = 0;

  // `path` in lower case, as the program shows and compares paths. It names the same file.
  [[nodiscard]] virtual std::string Lower(std::string_view path) = 0;

  // A name in lower case, letter by letter; the disk is not asked whether that is another file.
  [[nodiscard]] virtual std::string LowerLetters(std::string_view name) = 0;
};

// Whether `name` is a directory: by its look where it is a drive ("c:", "c:\", "c:."), else by its
// attributes. A name with a wildcard never is.
[[nodiscard]] bool IsDirectory(FileLookup& files, std::string_view name);

}  // namespace tarrow
