// The characters of a UTF-8 text as patterns see them.
//
// A byte that belongs to no valid sequence is a character by itself, with a code above all real ones: a text
// may hold such bytes, and a pattern can name them, but neither is ever mistaken for part of a character.
#pragma once

#include "base/utf16.h"
#include "search/pattern/text_access.h"

#include <cstdint>
#include <string_view>

namespace tarrow {

inline constexpr char32_t kStrayByte = 0x110000;  // plus the byte

struct Utf8Char {
  char32_t code = 0;
  std::int32_t length = 0;
};

inline bool IsUtf8Continuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The character that begins at `at`, which lies within the text.
template <typename Text>
Utf8Char Utf8At(const Text& text, std::int32_t at) {
  static constexpr std::int32_t kLongest = 4;
  auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) return {lead, 1};
  char bytes[kLongest];
  std::int32_t size = std::min(kLongest, text.Size() - at);
  for (std::int32_t i = 0; i < size; ++i) bytes[i] = text[at + i];
  Utf8Character c = ReadUtf8({bytes, static_cast<std::size_t>(size)});
  bool isStray = c.length == 1 || (c.code >= 0xD800 && c.code < 0xE000);
  return isStray ? Utf8Char{kStrayByte + lead, 1} : Utf8Char{c.code, static_cast<std::int32_t>(c.length)};
}

inline Utf8Char Utf8In(std::string_view text, std::size_t at) {
  return Utf8At(FlatText(TextView(text)), static_cast<std::int32_t>(at));
}

// Where the character begins that `at` lies within or at the start of; `at` may be the end of the text.
template <typename Text>
std::int32_t Utf8Start(const Text& text, std::int32_t at) {
  if (at >= text.Size() || !IsUtf8Continuation(text[at])) return at;
  for (std::int32_t back = 1; back <= 3 && back <= at; ++back)
    if (!IsUtf8Continuation(text[at - back])) return Utf8At(text, at - back).length > back ? at - back : at;
  return at;
}

// Appends the bytes of a character.
inline void AppendUtf8Char(std::string& out, char32_t code) {
  if (code >= kStrayByte)
    out += static_cast<char>(code - kStrayByte);
  else
    AppendUtf8(out, code);
}

}  // namespace tarrow
