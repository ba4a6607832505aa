#include "framework/lower_path.h"

#include "base/path_text.h"
#include "framework/file_system.h"
#include "framework/handle.h"
#include "framework/unicode.h"

#include <windows.h>

#include <tuple>

namespace tarrow {
namespace {

// Two files are opened for each answer; to list the directory costs less when there are many questions.
constexpr int kListAfter = 8;

using Identity = std::tuple<DWORD, DWORD, DWORD>;

std::optional<Identity> IdentityOf(std::string_view path) {
  std::wstring wide = ToWide(path);
  HANDLE handle =
      CreateFileW(wide.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  KernelHandle file(handle);
  BY_HANDLE_FILE_INFORMATION information;
  if (GetFileType(handle) != FILE_TYPE_DISK || !GetFileInformationByHandle(handle, &information)) return {};
  return Identity{information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow};
}

// Whether `path` is a file, and `lower` is not the same one.
bool IsAnother(const std::string& path, const std::string& lower) {
  if (path == lower) return false;
  auto identity = IdentityOf(path);
  return identity && IdentityOf(lower) != identity;
}

std::set<std::string> AmbiguousNames(const std::string& directory) {
  std::set<std::string> names, ambiguous;
  for (const DirectoryEntry& entry : FindFiles(directory + "*"))
    if (std::string lower = LowerCase(entry.name); !names.insert(lower).second) ambiguous.insert(lower);
  return ambiguous;
}

}  // namespace

std::string LowerPaths::Lower(std::string_view path) {
  std::string_view directory = DirectoryPart(path), name = FileNamePart(path);
  std::string lowerName = LowerCase(name);
  if (directory_ != directory) Enter(directory);
  if (lowerName == name) return lowerDirectory_ + lowerName;
  return lowerDirectory_ + (IsTaken(std::string(path), lowerName) ? std::string(name) : lowerName);
}

void LowerPaths::Enter(std::string_view directory) {
  directory_ = directory;
  lowerDirectory_ = LowerCase(directory);
  if (IsAnother(directory_, lowerDirectory_)) lowerDirectory_ = directory_;
  asked_ = 0;
  ambiguous_.reset();
}

// Whether the name in lower case is that of another file.
bool LowerPaths::IsTaken(const std::string& path, const std::string& lowerName) {
  if (++asked_ <= kListAfter) return IsAnother(path, lowerDirectory_ + lowerName);
  if (!ambiguous_) ambiguous_ = AmbiguousNames(directory_);
  return ambiguous_->contains(lowerName);
}

}  // namespace tarrow
