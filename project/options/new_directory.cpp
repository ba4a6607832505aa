#include "project/options/new_directory.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "framework/file_system.h"

namespace tarrow {
namespace {

void MakeMissing(std::string_view directory) {
  if (IsDirectory(directory)) return;
  std::string_view above = WithoutTrailingSeparators(DirectoryPart(directory));
  if (above.size() < directory.size()) MakeMissing(above);
  MakeDirectory(directory);
}

}  // namespace

void MakeDirectoryWithParents(const std::string& directory) {
  try {
    MakeMissing(WithoutTrailingSeparators(directory));
  } catch (const CFileException&) {
    throw CFileException(FileCause::kBadPath, directory);
  }
}

}  // namespace tarrow
