#include "framework/directories.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/text_format.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <windows.h>

#include <shlobj.h>

namespace tarrow {
namespace {

constexpr std::size_t kExtensionLength = 3;
constexpr int kMostAttempts = 1000;

// Numbers that neither this run of the program nor another one is likely to have used.
std::uint32_t NextNumber() {
  static std::uint32_t number = GetTickCount() * 2654435761u ^ GetCurrentProcessId() << 16;
  return ++number;
}

// Creates `path` as an empty file; false when one is there already.
bool CreateEmpty(const std::string& path) {
  try {
    CFile(path, CFile::Mode::kCreateNew, CFile::Share::kNothing).Close();
    return true;
  } catch (const CFileException&) {
    if (!FileExists(path)) throw;
    return false;
  }
}

// A folder of the user, which is made when it is missing.
std::string UsersFolder(int folder) {
  wchar_t path[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, folder | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path)))
    return {};
  return JoinPath(ToUtf8(path), "");
}

}  // namespace

std::string WorkingDirectory() {
  wchar_t path[kMaxPath];
  DWORD length = GetCurrentDirectoryW(kMaxPath, path);
  if (length == 0 || length >= kMaxPath) return {};
  return std::string(WithoutTrailingSeparators(LowerCase(ToUtf8({path, length}))));
}

void ChangeWorkingDirectory(std::string_view path) {
  if (!SetCurrentDirectoryW(CheckedWidePath(path).c_str())) ThrowLastFileError(path);
}

std::string TemporaryDirectory() {
  wchar_t path[MAX_PATH + 1];
  DWORD length = GetTempPathW(MAX_PATH + 1, path);
  if (length == 0 || length > MAX_PATH) throw CFileException(FileCause::kBadPath, "TEMP");
  return JoinPath(ToUtf8({path, length}), "");
}

std::string ApplicationDataDirectory() {
  return UsersFolder(CSIDL_APPDATA);
}

std::string LocalDataDirectory() {
  return UsersFolder(CSIDL_LOCAL_APPDATA);
}

std::string ProgramPath() {
  wchar_t path[kMaxPath];
  DWORD length = GetModuleFileNameW(nullptr, path, kMaxPath);
  return ToUtf8({path, length});
}

// The platform's own function returns a name under Wine even where no file can be created.
std::string CreateUniqueFile(const std::function<std::string(std::uint32_t)>& nameOf) {
  for (int attempt = 0;; ++attempt) {
    std::string path = nameOf(NextNumber());
    if (CreateEmpty(path)) return path;
    if (attempt == kMostAttempts) throw CFileException(FileCause::kDirectoryFull, path);
  }
}

std::string MakeTempName(std::string_view extension) {
  if (extension.size() != kExtensionLength) extension = "tmp";
  std::string directory = TemporaryDirectory();
  return CreateUniqueFile([&](std::uint32_t number) {
    return directory + FormatText("trw%08x.%s", {number, extension});
  });
}

}  // namespace tarrow
