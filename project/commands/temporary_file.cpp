#include "project/commands/temporary_file.h"

#include "base/path_text.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <algorithm>
#include <cctype>

namespace tarrow {
namespace {

constexpr wchar_t kPrefix[] = L"TRW";
constexpr std::size_t kMostDigits = 4;

// Whether the system makes such a name for the prefix: "TRW", some hexadecimal digits, ".tmp".
bool IsOurName(std::string_view name) {
  if (!name.starts_with(ToUtf8(kPrefix)) || !EqualIgnoringCase(name.substr(name.size() - 4), ".tmp"))
    return false;
  std::string_view digits = name.substr(3, name.size() - 7);
  return !digits.empty() && digits.size() <= kMostDigits && std::ranges::all_of(digits, [](char c) {
    return std::isxdigit(static_cast<unsigned char>(c)) != 0;
  });
}

}  // namespace

void TemporaryFile::Create() {
  Remove();
  std::string directory = TemporaryDirectory();
  wchar_t name[MAX_PATH];
  if (!::GetTempFileNameW(CheckedWidePath(directory).c_str(), kPrefix, 0, name))
    ThrowLastFileError(directory);
  path_ = ToUtf8(name);
  hold_.Reset(::CreateFileW(name, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                            nullptr));
}

std::uint64_t TemporaryFile::Size() const {
  LARGE_INTEGER size{};
  return ::GetFileSizeEx(hold_.Get(), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

void TemporaryFile::Write(std::string_view bytes) const {
  CFile file(path_, CFile::Mode::kUpdate, CFile::Share::kReadWrite);
  file.Write(bytes);
  file.Close();
}

void TemporaryFile::Remove() {
  if (!Exists()) return;
  hold_.Reset();
  ::DeleteFileW(ToWide(path_).c_str());
  path_.clear();
}

void TemporaryFile::Abandon() {
  hold_.Reset();
  path_.clear();
}

void TemporaryFile::RemoveLeftovers() {
  std::string directory = TemporaryDirectory();
  for (const DirectoryEntry& entry : FindFiles(JoinPath(directory, ToUtf8(kPrefix) + "*.tmp")))
    if (!entry.IsDirectory() && entry.name.size() > 7 && IsOurName(entry.name))
      ::DeleteFileW(ToWide(JoinPath(directory, entry.name)).c_str());
}

}  // namespace tarrow
