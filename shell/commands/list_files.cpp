#include "shell/commands/list_files.h"

#include "framework/file_system.h"
#include "tools/file_lists/file_dir.h"

#include <utility>

namespace tarrow {

std::vector<std::string> ListFiles(const std::vector<std::string>& names, Progress& progress) {
  DiskLookup disk;
  CFileDir list(disk, &progress);
  list.BuildFromNames(names);
  std::vector<std::string> paths;
  paths.reserve(list.Files().size());
  for (ListedFile& file : list.TakeFiles()) paths.push_back(std::move(file.path));
  return paths;
}

}  // namespace tarrow
