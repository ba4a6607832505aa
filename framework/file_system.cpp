#include "framework/file_system.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "framework/directory_search.h"
#include "framework/handle.h"
#include "framework/unicode.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";

std::uint64_t TimeOf(const FILETIME& time) {
  return static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

std::uint64_t SizeOf(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

// The full form of `wide`, or an empty string when there is none, it is too long, or it is a device.
std::wstring WideFullPath(const std::wstring& wide) {
  wchar_t full[kMaxPath];
  DWORD length = GetFullPathNameW(wide.c_str(), kMaxPath, full, nullptr);
  if (length == 0 || length >= kMaxPath) return {};
  std::wstring path(full, length);
  return path.starts_with(kDevicePrefix) ? std::wstring() : path;
}

// `path` for a question: an empty string where an operation would refuse it.
std::wstring WideOrEmpty(std::string_view path) {
  std::wstring wide = ToWide(path);
  return wide.size() < kMaxPath && wide.find(L'\0') == std::wstring::npos ? wide : std::wstring();
}

// An unknown drive that the path begins with; other paths have none.
bool HasUnknownDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && !DiskLookup().IsDriveKnown(path[0]);
}

// What tells a file from all others, while it is open.
std::optional<BY_HANDLE_FILE_INFORMATION> Identify(std::string_view path) {
  HANDLE handle = CreateFileW(WideOrEmpty(path).c_str(), FILE_READ_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  KernelHandle file(handle);
  BY_HANDLE_FILE_INFORMATION identity;
  if (!GetFileInformationByHandle(handle, &identity)) return {};
  return identity;
}

bool IsBareDrive(std::string_view path) {
  return path.size() == 2 && path[1] == ':';
}

}  // namespace

void ThrowLastFileError(std::string_view path) {
  throw CFileException(FileCauseFromWindows(GetLastError()), std::string(path));
}

std::wstring CheckedWidePath(std::string_view path) {
  std::wstring wide = WideOrEmpty(path);
  if (wide.empty()) throw CFileException(FileCause::kBadPath, std::string(path));
  return wide;
}

std::optional<FileStatus> GetFileStatus(std::string_view path) {
  std::wstring full = WideFullPath(WideOrEmpty(path));
  if (full.empty() || HasUnknownDrive(path)) return {};
  FileStatus status;
  status.fullName = ToUtf8(full);
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (GetFileAttributesExW(full.c_str(), GetFileExInfoStandard, &data)) {
    status.created = TimeOf(data.ftCreationTime);
    status.modified = TimeOf(data.ftLastWriteTime);
    status.accessed = TimeOf(data.ftLastAccessTime);
    status.size = SizeOf(data.nFileSizeHigh, data.nFileSizeLow);
    status.attributes = data.dwFileAttributes;
  } else if (IsBareDrive(path)) {
    status.attributes = kAttributeDirectory;  // a drive without a medium is a directory all the same
  } else {
    return {};
  }
  return status;
}

bool FileExists(std::string_view path) {
  return GetFileStatus(path).has_value();
}

bool SameFile(std::string_view a, std::string_view b) {
  auto first = Identify(a), second = Identify(b);
  return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
         first->nFileIndexHigh == second->nFileIndexHigh && first->nFileIndexLow == second->nFileIndexLow;
}

bool IsDirectory(std::string_view name) {
  DiskLookup disk;
  return IsDirectory(disk, name);
}

std::string FullPath(std::string_view path) {
  std::wstring full = WideFullPath(CheckedWidePath(path));
  if (full.empty()) throw CFileException(FileCause::kBadPath, std::string(path));
  return ToUtf8(full);
}

std::string FullPathLower(std::string_view path) {
  return LowerPaths().Lower(FullPath(path));
}

std::string TrueCase(std::string_view path) {
  if (path.find_first_of("?*") != std::string_view::npos) return std::string(path);
  std::vector<DirectoryEntry> found = FindFiles(path);
  std::string_view name = FileNamePart(path);
  bool isExact = std::ranges::any_of(found, [&](const DirectoryEntry& entry) { return entry.name == name; });
  if (found.empty() || isExact) return std::string(path);
  return std::string(DirectoryPart(path)) + found[0].name;
}

std::string TrueCasePath(std::string_view path) {
  std::string found;
  while (!path.empty()) {
    std::size_t end = path.find('\\');
    found = TrueCase(found.append(path.substr(0, end)));
    if (end == std::string_view::npos) break;
    found += '\\';
    path.remove_prefix(end + 1);
  }
  bool hasDrive = found.size() > 1 && found[1] == ':' && found[0] >= 'a' && found[0] <= 'z';
  if (hasDrive) found[0] = static_cast<char>(found[0] - 'a' + 'A');
  return found;
}

std::vector<DirectoryEntry> FindFiles(std::string_view pattern) {
  std::vector<DirectoryEntry> entries;
  SearchDirectory(WideOrEmpty(pattern), [&](DirectoryEntry&& entry) { entries.push_back(std::move(entry)); });
  return entries;
}

void RemoveFile(std::string_view path) {
  if (!DeleteFileW(CheckedWidePath(path).c_str())) ThrowLastFileError(path);
}

void RenameFile(std::string_view from, std::string_view to) {
  std::wstring wideFrom = CheckedWidePath(from), wideTo = CheckedWidePath(to);
  if (!MoveFileExW(wideFrom.c_str(), wideTo.c_str(), MOVEFILE_COPY_ALLOWED)) ThrowLastFileError(from);
}

void DuplicateFile(std::string_view from, std::string_view to, bool overwrite) {
  std::wstring wideFrom = CheckedWidePath(from), wideTo = CheckedWidePath(to);
  if (!CopyFileW(wideFrom.c_str(), wideTo.c_str(), !overwrite)) ThrowLastFileError(to);
}

void MakeDirectory(std::string_view path) {
  if (!CreateDirectoryW(CheckedWidePath(path).c_str(), nullptr)) ThrowLastFileError(path);
}

void MakeDirectories(std::string_view path) {
  std::string_view directory = WithoutTrailingSeparators(path);
  std::string_view above = WithoutTrailingSeparators(DirectoryPart(directory));
  if (!above.empty() && above.size() < directory.size() && !IsDirectory(above)) MakeDirectories(above);
  if (!IsDirectory(directory)) MakeDirectory(directory);
}

void ChangeAttributes(std::string_view path, std::uint32_t attributes) {
  if (!SetFileAttributesW(CheckedWidePath(path).c_str(), attributes)) ThrowLastFileError(path);
}

void ChangeModifiedTime(std::string_view path, std::uint64_t time) {
  HANDLE handle = CreateFileW(CheckedWidePath(path).c_str(), FILE_WRITE_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) ThrowLastFileError(path);
  KernelHandle file(handle);
  FILETIME value{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
  if (!SetFileTime(handle, nullptr, nullptr, &value)) ThrowLastFileError(path);
}

std::optional<std::uint32_t> DiskLookup::Attributes(std::string_view path) {
  std::wstring wide = WideOrEmpty(path);
  DWORD attributes = wide.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return {};
  return attributes;
}

bool DiskLookup::IsDriveKnown(char letter) {
  wchar_t root[] = {static_cast<unsigned char>(letter), L':', L'\\', L'\0'};
  UINT type = GetDriveTypeW(root);
  return type != DRIVE_UNKNOWN && type != DRIVE_NO_ROOT_DIR;
}

std::optional<std::string> DiskLookup::FullPath(std::string_view path) {
  std::wstring full = WideFullPath(WideOrEmpty(path));
  if (full.empty()) return {};
  return ToUtf8(full);
}

// A single name is answered at once, where a directory of many files, or one at the other end of a network,
// may take its time.
void DiskLookup::Find(std::string_view pattern, Progress* progress, const EntryUse& use) {
  bool isWild = pattern.find_first_of("?*") != std::string_view::npos;
  if (progress && isWild)
    SearchDirectory(WideOrEmpty(pattern), *progress, use);
  else
    SearchDirectory(WideOrEmpty(pattern), use);
}

std::string DiskLookup::Lower(std::string_view path) {
  return lower_.Lower(path);
}

std::string DiskLookup::LowerLetters(std::string_view name) {
  return LowerCase(name);
}

}  // namespace tarrow
