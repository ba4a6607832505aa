#include "edit/files/look_at_file.h"

#include "base/exceptions.h"
#include "framework/file_system.h"
#include "framework/handle.h"

#include <windows.h>

namespace tarrow {
namespace {

std::uint64_t Join(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32 | low;
}

FileLook FailedLook(DWORD error) {
  bool isGone = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  return {isGone ? FileLook::Found::kNothing : FileLook::Found::kUnknown};
}

}  // namespace

// The handle leads through links to the file itself; the entry of a directory may be that of a link, and old.
FileLook LookAtFile(const std::string& path) {
  try {
    constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE handle = ::CreateFileW(CheckedWidePath(path).c_str(), FILE_READ_ATTRIBUTES, kShare, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return FailedLook(::GetLastError());
    KernelHandle file(handle);
    BY_HANDLE_FILE_INFORMATION is;
    if (::GetFileType(handle) != FILE_TYPE_DISK || !::GetFileInformationByHandle(handle, &is)) return {};
    return {FileLook::Found::kFile, Join(is.nFileSizeHigh, is.nFileSizeLow),
            Join(is.ftLastWriteTime.dwHighDateTime, is.ftLastWriteTime.dwLowDateTime)};
  } catch (const CFileException&) {
    return {};
  }
}

// The type of a drive is known to the system without asking it. A share by its name is none.
bool IsOnLocalDisk(const std::string& path) {
  if (path.size() < 3 || path[1] != ':') return false;
  wchar_t root[] = {static_cast<wchar_t>(path[0]), L':', L'\\', L'\0'};
  UINT type = ::GetDriveTypeW(root);
  return type == DRIVE_FIXED || type == DRIVE_REMOVABLE || type == DRIVE_RAMDISK;
}

}  // namespace tarrow
