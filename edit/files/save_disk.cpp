#include "edit/files/save_disk.h"

#include "base/path_text.h"
#include "edit/files/temporary_name.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/handle.h"
#include "framework/platform.h"
#include "framework/unicode.h"

#include <windows.h>

#include <algorithm>
#include <functional>

namespace tarrow {
namespace {

// Scanners and indexers hold a file open for moments after it was written.
constexpr int kAttempts = 6;
constexpr DWORD kPauseMilliseconds = 80;

// Repeats `operation` while it fails for what may pass, and throws when it goes on failing.
template <typename Operation>
void RetryWhileBusy(const std::string& path, Operation operation) {
  for (int attempt = 1; !operation(); ++attempt) {
    DWORD error = GetLastError();
    bool mayPass = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!mayPass || attempt == kAttempts) throw CFileException(FileCauseFromWindows(error), path);
    Sleep(kPauseMilliseconds);
  }
}

// A name that the platform takes for a device wherever it stands (nul, c:\con), or in a device's own form.
bool IsDevice(const std::string& path) {
  wchar_t full[kMaxPath];
  DWORD length = GetFullPathNameW(CheckedWidePath(path).c_str(), kMaxPath, full, nullptr);
  return length > 0 && length < kMaxPath && std::wstring_view(full).starts_with(L"\\\\.\\");
}

// Lets the system put `from` in the place of `to`.
void Exchange(const std::string& from, const std::string& to, const std::string& backup) {
  std::wstring wideFrom = CheckedWidePath(from), wideTo = CheckedWidePath(to);
  std::wstring wideBackup = backup.empty() ? std::wstring() : CheckedWidePath(backup);
  const wchar_t* backupName = backup.empty() ? nullptr : wideBackup.c_str();
  RetryWhileBusy(to, [&] {
    if (ReplaceFileW(wideTo.c_str(), wideFrom.c_str(), backupName, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                     nullptr))
      return true;
    DWORD error = GetLastError();
    // The old file has become the backup, and the new one has not taken its place.
    if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2 && backupName) MoveFileExW(backupName, wideTo.c_str(), 0);
    SetLastError(error);
    return false;
  });
}

// What the existing name `target.path` stands for, as far as its handle tells.
void Examine(SaveDisk::Target& target) {
  HANDLE handle =
      CreateFileW(CheckedWidePath(target.path).c_str(), FILE_READ_ATTRIBUTES,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
  target.inPlace = true;  // unless it is known to have no other name
  if (handle == INVALID_HANDLE_VALUE) return;
  KernelHandle file(handle);
  BY_HANDLE_FILE_INFORMATION information;
  if (GetFileType(handle) != FILE_TYPE_DISK)
    target.kind = SaveDisk::Kind::kDevice;
  else if (GetFileInformationByHandle(handle, &information))
    target.inPlace = information.nNumberOfLinks != 1;
}

}  // namespace

WindowsSaveDisk::Way WindowsSaveDisk::ForTexts() {
  return IsWine() ? Way::kOverwrite : Way::kReplace;
}

WindowsSaveDisk::Way WindowsSaveDisk::ForSettings() {
  return IsWine() ? Way::kMove : Way::kReplace;
}

SaveDisk::Target WindowsSaveDisk::Resolve(const std::string& path) {
  if (IsDevice(path)) return {path, Kind::kDevice};
  Target target{TrueCase(FullPath(path)), Kind::kFile};
  DWORD attributes = GetFileAttributesW(CheckedWidePath(target.path).c_str());
  DWORD error = GetLastError();
  if (attributes == INVALID_FILE_ATTRIBUTES && error == ERROR_FILE_NOT_FOUND)
    return {target.path, Kind::kNothing};
  Examine(target);
  if (target.kind == Kind::kDevice) return target;
  if (attributes == INVALID_FILE_ATTRIBUTES) throw CFileException(FileCauseFromWindows(error), path);
  if (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))
    throw CFileException(FileCause::kAccessDenied, path);
  if (way_ == Way::kOverwrite || (attributes & FILE_ATTRIBUTE_REPARSE_POINT)) target.inPlace = true;
  return target;
}

std::string WindowsSaveDisk::MakeTemporary(const std::string& path) {
  if (path.empty()) return MakeTempName();
  return CreateUniqueFile([&](std::uint32_t number) { return TemporaryName(path, number); });
}

std::vector<std::string> WindowsSaveDisk::Temporaries(const std::string& path) {
  std::vector<DirectoryEntry> found = FindFiles(path + ".*");
  std::string name = LowerCase(FileNamePart(path));
  std::erase_if(found, [&](const DirectoryEntry& entry) {
    std::string target = LowerCase(TargetOfTemporary(entry.name));
    return target.empty() || target != name;
  });
  std::ranges::sort(found, std::greater(), &DirectoryEntry::modified);
  std::vector<std::string> paths;
  for (const DirectoryEntry& entry : found) paths.push_back(std::string(DirectoryPart(path)) + entry.name);
  return paths;
}

std::unique_ptr<DiskFile> WindowsSaveDisk::Open(const std::string& path, Access access) {
  switch (access) {
    case Access::kRead:
      return std::make_unique<CFile>(path, CFile::Mode::kRead, CFile::Share::kRead);
    case Access::kUpdate:
      return std::make_unique<CFile>(path, CFile::Mode::kUpdate, CFile::Share::kRead);
    default:
      return std::make_unique<CFile>(path, CFile::Mode::kCreate, CFile::Share::kReadWrite);
  }
}

void WindowsSaveDisk::Replace(const std::string& from, const std::string& to, const std::string& backup) {
  std::wstring wideTo = CheckedWidePath(to);
  DWORD attributes = GetFileAttributesW(wideTo.c_str());
  way_ == Way::kMove ? MoveOver(from, to, backup) : Exchange(from, to, backup);
  // A moved file has attributes of its own, and under Wine an exchanged one too.
  if (GetFileAttributesW(wideTo.c_str()) != attributes) SetFileAttributesW(wideTo.c_str(), attributes);
}

void WindowsSaveDisk::MoveOver(const std::string& from, const std::string& to, const std::string& backup) {
  if (backup.empty()) return Move(from, to);
  Move(to, backup);
  try {
    Move(from, to);
  } catch (const CFileException&) {
    Move(backup, to);
    throw;
  }
}

void WindowsSaveDisk::Move(const std::string& from, const std::string& to) {
  std::wstring wideFrom = CheckedWidePath(from), wideTo = CheckedWidePath(to);
  RetryWhileBusy(to, [&] {
    return MoveFileExW(wideFrom.c_str(), wideTo.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH) != 0;
  });
}

void WindowsSaveDisk::Copy(const std::string& from, const std::string& to) {
  DuplicateFile(from, to, true);
}
void WindowsSaveDisk::Remove(const std::string& path) {
  RemoveFile(path);
}

}  // namespace tarrow
