// A directory of a test's own, gone with everything in it when the test ends.
#pragma once

#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"

#include <string>
#include <string_view>

namespace tarrow {

class ScratchDirectory {
 public:
  ScratchDirectory() : path_(MakeTempName()) {
    RemoveFile(path_);
    MakeDirectory(path_);
  }
  ~ScratchDirectory() { RemoveTree(path_); }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;

  const std::string& Path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "\\" + std::string(name); }

  // Makes the file `name` with these bytes and returns its path.
  std::string Make(std::string_view name, std::string_view bytes) const {
    std::string path = *this / name;
    CFile file(path, CFile::Mode::kCreate, CFile::Share::kNothing);
    file.Write(bytes);
    file.Close();
    return path;
  }

 private:
  static void RemoveTree(const std::string& directory);

  std::string path_;
};

}  // namespace tarrow
