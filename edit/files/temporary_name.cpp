#include "edit/files/temporary_name.h"

#include "base/path_text.h"
#include "base/text_format.h"
#include "base/utf16.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::string_view kEnding = ".tarrow";
constexpr std::size_t kDigits = 8;
constexpr std::size_t kTailLength = 1 + kDigits + kEnding.size();

// Of disks that count bytes, and no more characters than that elsewhere.
constexpr std::size_t kLongestName = 255;

std::size_t UnitsOf(std::string_view utf8) {
  return Utf8ToUtf16<char16_t>(utf8).size();
}

void DropLastCharacter(std::string_view& utf8) {
  while (!utf8.empty() && (utf8.back() & 0xC0) == 0x80) utf8.remove_suffix(1);
  if (!utf8.empty()) utf8.remove_suffix(1);
}

bool IsDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
}

}  // namespace

std::string TemporaryName(std::string_view path, std::uint32_t number) {
  std::string_view name = FileNamePart(path);
  while (name.size() + kTailLength > kLongestName) DropLastCharacter(name);
  std::size_t directory = UnitsOf(DirectoryPart(path));
  while (!name.empty() && directory + UnitsOf(name) + kTailLength >= kMaxPath) DropLastCharacter(name);
  return std::string(DirectoryPart(path)).append(name) + FormatText(".%08x%s", {number, kEnding});
}

std::string_view TargetOfTemporary(std::string_view path) {
  if (FileNamePart(path).size() <= kTailLength || !path.ends_with(kEnding)) return {};
  std::string_view tail = path.substr(path.size() - kTailLength);
  std::string_view digits = tail.substr(1, kDigits);
  bool isOurs = tail[0] == '.' && std::ranges::all_of(digits, IsDigit);
  return isOurs ? path.substr(0, path.size() - kTailLength) : std::string_view();
}

}  // namespace tarrow
