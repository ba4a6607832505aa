#include "framework/directories.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <windows.h>

#include <shlobj.h>

namespace tarrow {
namespace {

constexpr wchar_t kTempPrefix[] = L"trw";
constexpr std::size_t kExtensionLength = 3;
constexpr int kMostAttempts = 1000;

// GetTempFileNameW leaves room for a name of 8.3 behind the directory.
std::string UniqueNameIn(std::string_view directory) {
  wchar_t name[MAX_PATH];
  if (!GetTempFileNameW(CheckedWidePath(directory).c_str(), kTempPrefix, 0, name))
    ThrowLastFileError(directory);
  return ToUtf8(name);
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
  wchar_t path[MAX_PATH];
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path)))
    return {};
  return JoinPath(ToUtf8(path), "");
}

std::string ProgramPath() {
  wchar_t path[kMaxPath];
  DWORD length = GetModuleFileNameW(nullptr, path, kMaxPath);
  return ToUtf8({path, length});
}

std::string MakeTempName(std::string_view extension) {
  for (int attempt = 0;; ++attempt) {
    std::string name = UniqueNameIn(TemporaryDirectory());
    if (extension.size() != kExtensionLength) return name;
    std::string wanted = name.substr(0, name.size() - kExtensionLength).append(extension);
    // The name without the extension was only there to be unique.
    bool created = CreateEmpty(wanted);
    RemoveFile(name);
    if (created) return wanted;
    if (attempt == kMostAttempts) throw CFileException(FileCause::kDirectoryFull, wanted);
  }
}

std::string MakeTempNameIn(std::string_view directory) {
  return UniqueNameIn(directory);
}

}  // namespace tarrow
