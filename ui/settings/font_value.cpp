#include "ui/settings/font_value.h"

#include "base/text_format.h"
#include "base/utf16.h"

#include <algorithm>
#include <charconv>

namespace tarrow {
namespace {

constexpr std::size_t kLongestFace = 31;  // characters

}  // namespace

FontChoice ParseFont(std::string_view value) {
  std::size_t comma = std::min(value.find(','), value.size());
  FontChoice font;
  if (comma == 0 || Utf8ToUtf16<char16_t>(value.substr(0, comma)).size() > kLongestFace) return font;
  font.face = value.substr(0, comma);
  int numbers[3] = {0, 0, 0};
  const char* at = value.data() + comma;
  const char* end = value.data() + value.size();
  for (int& number : numbers) {
    if (at == end || *at != ',') break;
    at = std::from_chars(at + 1, end, number).ptr;
  }
  font.height = numbers[0];
  font.weight = numbers[1];
  font.italic = numbers[2] != 0;
  return font;
}

std::string FormatFont(const FontChoice& font) {
  return FormatText("%s,%d,%d,%d", {font.face, font.height, font.weight, font.italic});
}

}  // namespace tarrow
