#include "shell/commands/list_files.h"

#include "framework/file_system.h"
#include "tools/file_lists/file_dir.h"

namespace tarrow {

std::vector<std::string> ListFiles(const std::vector<std::string>& names) {
  DiskLookup disk;
  CFileDir list(disk);
  std::vector<std::string> paths;
  paths.reserve(list.BuildFromNames(names));
  while (const std::string* path = list.Next()) paths.push_back(*path);
  return paths;
}

}  // namespace tarrow
