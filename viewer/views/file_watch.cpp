#include "viewer/views/file_watch.h"

#include "framework/file_system.h"
#include "framework/unicode.h"

#include <windows.h>

#include <utility>

namespace tarrow {
namespace {

bool IsOnLocalDisk(const std::string& path) {
  wchar_t root[MAX_PATH];
  if (!::GetVolumePathNameW(ToWide(path).c_str(), root, MAX_PATH)) return false;
  UINT type = ::GetDriveTypeW(root);
  return type == DRIVE_FIXED || type == DRIVE_REMOVABLE || type == DRIVE_RAMDISK;
}

}  // namespace

void FileWatch::Watch(const std::string& path) {
  path_ = path;
  isLocal_ = IsOnLocalDisk(path_);
  Look(stamp_);
}

bool FileWatch::Look(Stamp& stamp) const {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (!isLocal_ || !::GetFileAttributesExW(ToWide(path_).c_str(), GetFileExInfoStandard, &data)) return false;
  auto join = [](DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; };
  stamp = {join(data.nFileSizeHigh, data.nFileSizeLow),
           join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
  return true;
}

// Under another name it is the same file.
bool FileWatch::HasChanged(const std::string& path) {
  if (path != path_) Watch(path);
  Stamp now = stamp_;
  return Look(now) && std::exchange(stamp_, now) != now;
}

}  // namespace tarrow
