#include "tests/framework/scratch_directory.h"

#include "framework/unicode.h"

#include <windows.h>

namespace tarrow {

void ScratchDirectory::RemoveTree(const std::string& directory) {
  for (const DirectoryEntry& entry : FindFiles(directory + "\\*")) {
    if (entry.name == "." || entry.name == "..") continue;
    std::string path = directory + "\\" + entry.name;
    SetFileAttributesW(ToWide(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    if (entry.IsDirectory())
      RemoveTree(path);
    else
      DeleteFileW(ToWide(path).c_str());
  }
  RemoveDirectoryW(ToWide(directory).c_str());
}

}  // namespace tarrow
