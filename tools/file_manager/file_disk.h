// The disk as the file manager needs it.
//
// Paths are UTF-8 and full. Questions answer and do not throw; operations throw CFileException, and have
// changed nothing then unless it is said here.
#pragma once

#include "base/file_lookup.h"
#include "base/progress.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarrow {

struct FileState {
  std::uint64_t size = 0;
  std::uint64_t modified = 0;  // in units of 100 nanoseconds since 1601, UTC
  std::uint32_t attributes = 0;
};

class FileDisk : public FileLookup {
 public:
  // What stands behind a name, file or directory; nothing when nothing does.
  [[nodiscard]] virtual std::optional<FileState> State(const std::string& path) = 0;

  // Whether two names lead to the same file.
  [[nodiscard]] virtual bool IsSame(const std::string& a, const std::string& b) = 0;

  // Makes an empty file with a name of its own in the directory of `path` and returns its path.
  [[nodiscard]] virtual std::string MakeTemporary(const std::string& path) = 0;

  // Copies bytes, times and attributes over `to`, of which a failure may leave anything. Polls `progress` and
  // lets its CYieldException through.
  virtual void Copy(const std::string& from, const std::string& to, Progress& progress) = 0;

  // Gives a file another name. A file that has it is replaced only when `replace` is set. False when the two
  // names are on different volumes, and nothing has happened.
  [[nodiscard]] virtual bool Move(const std::string& from, const std::string& to, bool replace) = 0;

  virtual void Remove(const std::string& path) = 0;

  // Puts a file into the recycle bin, or removes it where there is none.
  virtual void Recycle(const std::string& path) = 0;

  virtual void SetAttributes(const std::string& path, std::uint32_t attributes) = 0;
  virtual void SetModified(const std::string& path, std::uint64_t time) = 0;
};

}  // namespace tarrow
