// A file of the project's commands in the system's directory for temporary files.
//
// Its name begins with "TRW". While this object has it, others may read and write the file but not remove it,
// so what nobody holds was left behind by a run that ended before it could clean up.
#pragma once

#include "framework/handle.h"

#include <string>
#include <string_view>

namespace tarrow {

class TemporaryFile {
 public:
  TemporaryFile() = default;
  ~TemporaryFile() { Remove(); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // Makes a new, empty file in place of the one that the object has. Throws CFileException.
  void Create();

  bool Exists() const { return !path_.empty(); }
  const std::string& Path() const { return path_; }

  // How many bytes it has now.
  std::uint64_t Size() const;

  // Gives it these bytes. Throws CFileException.
  void Write(std::string_view bytes) const;

  // Removes the file, if there is one.
  void Remove();

  // Leaves the file to whoever writes it: it is removed as a leftover later.
  void Abandon();

  // Removes the files that nobody holds any more.
  static void RemoveLeftovers();

 private:
  std::string path_;
  KernelHandle hold_;
};

}  // namespace tarrow
