#include "base/file_lookup.h"

namespace tarrow {

bool IsDirectory(FileLookup& files, std::string_view name) {
  if (name.find_first_of("?*") != std::string_view::npos) return false;
  if (name.size() >= 2 && name[1] == ':') {
    if (!files.IsDriveKnown(name[0])) return false;
    if (name.size() == 2 || (name.size() == 3 && (name[2] == '\\' || name[2] == '.'))) return true;
  }
  auto attributes = files.Attributes(name);
  return attributes && (*attributes & kAttributeDirectory) != 0;
}

}  // namespace tarrow
