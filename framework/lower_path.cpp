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
  std::string_view name = FileNamePart(path);
  std::string lowerName = LowerCase(name);
  std::string_view part = DirectoryPart(path);
  Directory& directory = directories_.try_emplace(std::string(part), part).first->second;
  if (lowerName == name) return directory.lower + lowerName;
  return directory.lower + (directory.IsTaken(std::string(path), lowerName) ? std::string(name) : lowerName);
}

LowerPaths::Directory::Directory(std::string_view name) : path(name), lower(LowerCase(name)) {
  if (IsAnother(path, lower)) lower = path;
}

// Whether the name in lower case is that of another file.
bool LowerPaths::Directory::IsTaken(const std::string& file, const std::string& lowerName) {
  if (++asked <= kListAfter) return IsAnother(file, lower + lowerName);
  if (!ambiguous) ambiguous = AmbiguousNames(path);
  return ambiguous->contains(lowerName);
}

}  // namespace tarrow
