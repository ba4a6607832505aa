#include "tools/file_manager/windows_file_disk.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "edit/files/temporary_name.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/handle.h"
#include "framework/platform.h"
#include "framework/unicode.h"

#include <windows.h>

#include <shellapi.h>

#include <exception>
#include <memory>

namespace tarrow {
namespace {

constexpr std::size_t kBlock = 1 << 20;

// The system's copy of a file polls the progress, and ends where that throws.
struct WatchedCopy {
  Progress& progress;
  std::exception_ptr stopped{};

  static DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD,
                                   HANDLE, HANDLE, void* data) noexcept {
    auto* copy = static_cast<WatchedCopy*>(data);
    try {
      copy->progress.Poll();
      return PROGRESS_CONTINUE;
    } catch (...) {
      copy->stopped = std::current_exception();
      return PROGRESS_CANCEL;
    }
  }
};

// Takes along what else belongs to a file: its streams.
void CopyBySystem(const std::string& from, const std::string& to, Progress& progress) {
  WatchedCopy copy{progress};
  BOOL done = CopyFileExW(CheckedWidePath(from).c_str(), CheckedWidePath(to).c_str(), WatchedCopy::OnProgress,
                          &copy, nullptr, 0);
  DWORD error = GetLastError();
  if (copy.stopped) std::rethrow_exception(copy.stopped);
  if (!done) throw CFileException(FileCauseFromWindows(error), from);
}

// Under Wine the system's copy tells nothing while it lasts, and could not be cancelled.
void CopyInBlocks(const std::string& from, const std::string& to, Progress& progress) {
  CFile source(from, CFile::Mode::kRead, CFile::Share::kReadWrite);
  CFile target(to, CFile::Mode::kUpdate, CFile::Share::kNothing);
  auto block = std::make_unique<char[]>(kBlock);
  for (std::size_t got = kBlock; got == kBlock;) {
    got = source.Read({block.get(), kBlock});
    target.Write({block.get(), got});
    progress.Poll();
  }
  target.Close();
}

KernelHandle OpenForTimes(const std::string& path, DWORD access) {
  HANDLE handle =
      CreateFileW(CheckedWidePath(path).c_str(), access,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) ThrowLastFileError(path);
  return KernelHandle(handle);
}

void CopyTimes(const std::string& from, const std::string& to) {
  FILETIME created, accessed, modified;
  KernelHandle source = OpenForTimes(from, FILE_READ_ATTRIBUTES),
               target = OpenForTimes(to, FILE_WRITE_ATTRIBUTES);
  if (!GetFileTime(source.Get(), &created, &accessed, &modified)) ThrowLastFileError(from);
  if (!SetFileTime(target.Get(), &created, &accessed, &modified)) ThrowLastFileError(to);
}

// The shell has numbers of its own beside those of the system.
FileCause CauseOfShellError(int error) {
  constexpr int kAccessDeniedSource = 0x78, kInvalidFiles = 0x7C;
  if (error == kAccessDeniedSource) return FileCause::kAccessDenied;
  if (error == kInvalidFiles) return FileCause::kBadPath;
  return FileCauseFromWindows(static_cast<unsigned long>(error));
}

DriveKind KindOf(UINT type) {
  switch (type) {
    case DRIVE_FIXED:
      return DriveKind::kFixed;
    case DRIVE_REMOVABLE:
      return DriveKind::kRemovable;
    case DRIVE_REMOTE:
      return DriveKind::kRemote;
    default:
      return DriveKind::kOther;
  }
}

bool Rename(const std::string& from, const std::string& to, bool replace) {
  return MoveFileExW(CheckedWidePath(from).c_str(), CheckedWidePath(to).c_str(),
                     replace ? MOVEFILE_REPLACE_EXISTING : 0) != 0;
}

// Wine takes names that differ in case only for the same and leaves the old one: it goes by way of a third.
void ChangeCase(const std::string& path) {
  std::string between = path + ".trw";
  if (!Rename(path, between, false)) ThrowLastFileError(path);
  if (!Rename(between, path, false)) ThrowLastFileError(between);
}

}  // namespace

std::optional<FileState> WindowsFileDisk::State(const std::string& path) {
  auto status = GetFileStatus(path);
  if (!status) return {};
  return FileState{status->size, status->modified, status->attributes};
}

std::string WindowsFileDisk::MakeTemporary(const std::string& path) {
  std::string directory(DirectoryPart(path));
  if (!tarrow::IsDirectory(WithoutTrailingSeparators(directory)))
    throw CFileException(FileCause::kBadPath, path);
  return CreateUniqueFile([&](std::uint32_t number) { return TemporaryName(path, number); });
}

void WindowsFileDisk::Copy(const std::string& from, const std::string& to, Progress& progress) {
  IsWine() ? CopyInBlocks(from, to, progress) : CopyBySystem(from, to, progress);
  CopyTimes(from, to);
  if (auto attributes = Attributes(from); attributes && attributes != Attributes(to))
    ChangeAttributes(to, *attributes);
}

bool WindowsFileDisk::Move(const std::string& from, const std::string& to, bool replace) {
  if (Rename(from, to, replace)) {
    bool onlyCaseChanges = from != to && Lower(from) == Lower(to);
    if (onlyCaseChanges && FileNamePart(TrueCase(to)) != FileNamePart(to)) ChangeCase(to);
    return true;
  }
  DWORD error = GetLastError();
  if (error == ERROR_NOT_SAME_DEVICE) return false;
  throw CFileException(FileCauseFromWindows(error), from);
}

DriveFacts WindowsFileDisk::Drive(const std::string& directory) {
  wchar_t root[kMaxPath];
  if (!GetVolumePathNameW(CheckedWidePath(directory).c_str(), root, kMaxPath)) return {};
  SHQUERYRBINFO bin{};
  bin.cbSize = sizeof bin;
  return {KindOf(GetDriveTypeW(root)), SUCCEEDED(SHQueryRecycleBinW(root, &bin))};
}

void WindowsFileDisk::Recycle(const std::string& path) {
  std::wstring list = CheckedWidePath(path) + L'\0';  // a list of one, ended by a second NUL
  SHFILEOPSTRUCTW operation{};
  operation.wFunc = FO_DELETE;
  operation.pFrom = list.c_str();
  operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
  int error = SHFileOperationW(&operation);
  if (error) throw CFileException(CauseOfShellError(error), path);
  if (operation.fAnyOperationsAborted) throw CFileException(FileCause::kGeneric, path);
}

}  // namespace tarrow
