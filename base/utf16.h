// UTF-8 to UTF-16 and back, losing nothing that a name on disk can hold.
//
// Names of files are any sequence of 16-bit units, half a surrogate pair included; such a unit becomes the
// three bytes that its number would have, and comes back from them. The platform's own conversion replaces
// it, and the file could not be opened again. A byte that is part of no character becomes U+FFFD. `Wide` is
// wchar_t on Windows and char16_t elsewhere; both have 16 bits where this is used.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

// One character read from UTF-8: its number and how many bytes it took. Overlong forms, numbers above
// U+10FFFF and stray bytes give `kReplacementCharacter` and a length of 1.
struct Utf8Character {
  std::uint32_t code;
  unsigned length;
};

inline constexpr std::uint32_t kReplacementCharacter = 0xFFFD;

constexpr bool IsHighSurrogate(std::uint32_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(std::uint32_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

// Reads the character that `text`, which is not empty, begins with. Surrogates in three bytes are let pass.
constexpr Utf8Character ReadUtf8(std::string_view text) {
  auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1};
  unsigned length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  if (length == 0 || text.size() < length) return {kReplacementCharacter, 1};
  std::uint32_t code = lead & (0x7Fu >> length);
  for (unsigned i = 1; i < length; ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return {kReplacementCharacter, 1};
    code = code << 6 | (byte & 0x3Fu);
  }
  constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < kLeast[length] || code > 0x10FFFF) return {kReplacementCharacter, 1};
  return {code, length};
}

constexpr void AppendUtf8(std::string& out, std::uint32_t code) {
  auto put = [&](std::uint32_t byte) { out += static_cast<char>(byte); };
  if (code < 0x80) return put(code);
  if (code < 0x800) {
    put(0xC0 | code >> 6);
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

template <typename Wide>
std::basic_string<Wide> Utf8ToUtf16(std::string_view utf8) {
  std::basic_string<Wide> out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    auto [code, length] = ReadUtf8(utf8);
    utf8.remove_prefix(length);
    if (code >= 0x10000) {
      out += static_cast<Wide>(0xD7C0 + (code >> 10));
      code = 0xDC00 | (code & 0x3FF);
    }
    out += static_cast<Wide>(code);
  }
  return out;
}

template <typename Wide>
std::string Utf16ToUtf8(std::basic_string_view<Wide> wide) {
  std::string out;
  out.reserve(wide.size());
  for (std::size_t i = 0; i < wide.size(); ++i) {
    std::uint32_t code = static_cast<std::uint16_t>(wide[i]);
    if (IsHighSurrogate(code) && i + 1 < wide.size() &&
        IsLowSurrogate(static_cast<std::uint16_t>(wide[i + 1])))
      code = 0x10000 + ((code & 0x3FF) << 10) + (static_cast<std::uint16_t>(wide[++i]) & 0x3FFu);
    AppendUtf8(out, code);
  }
  return out;
}

// Whether all of `text` is UTF-8 in the strict sense: surrogates are refused.
constexpr bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    auto [code, length] = ReadUtf8(text);
    bool stray = code == kReplacementCharacter && length == 1;
    if (stray || (code >= 0xD800 && code < 0xE000)) return false;
    text.remove_prefix(length);
  }
  return true;
}

}  // namespace tarrow
