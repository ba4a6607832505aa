// What characters the bytes of a text are: UTF-8, or else an ANSI code page.
//
// Characters are an interpretation of bytes and never change them. A text whose bytes of 0x80 and above form
// valid UTF-8 is UTF-8; any other is in the system's ANSI code page. In UTF-8 a byte that belongs to no valid
// sequence is a character by itself, shown as U+FFFD. CR LF is one step for a caret. Positions are bytes.
#pragma once

#include "base/text_view.h"
#include "base/utf16.h"

#include <array>
#include <string>
#include <string_view>

namespace tarrow {

// An ANSI code page of one or two bytes a character. In one of two, a lead byte makes a pair with any byte of
// 0x40 or above behind it.
struct CodePage {
  std::array<char16_t, 256> single{};  // the characters of single bytes
  std::array<bool, 256> isLead{};
  char16_t (*decodePair)(unsigned char lead, unsigned char trail) = nullptr;
  std::string (*encode)(char32_t code) = nullptr;  // "?" for a character that the page lacks
};

// The page of Western languages, and what the system uses; they are the same where there is no Windows.
const CodePage& WesternCodePage();
const CodePage& SystemCodePage();

// A character as it stands in a text.
struct Character {
  char32_t code = 0;
  std::int32_t length = 0;  // bytes, 0 only at the end of the text
};

class Charset {
 public:
  Charset() = default;  // UTF-8
  explicit Charset(const CodePage& page) : page_(&page) {}

  // The charset that the bytes of `text` tell.
  static Charset Of(const TextView& text, const CodePage& page = SystemCodePage());

  bool IsUtf8() const { return page_ == nullptr; }

  // The character that begins at `at`; CR and LF are characters of their own here.
  Character At(const TextView& text, BytePos at) const;

  // Whole steps of a caret, never into a character nor between CR and LF; the ends of the text stop them.
  BytePos Next(const TextView& text, BytePos at) const;
  BytePos Previous(const TextView& text, BytePos at) const;

  // `at`, or where the character (or CR LF) begins that it lies within.
  BytePos Snap(const TextView& text, BytePos at) const;

  // To and from UTF-16. Bytes that are no character become U+FFFD; characters that the charset lacks become
  // "?"; half a surrogate pair becomes U+FFFD.
  std::u16string ToWide(const TextView& text) const;
  std::string FromWide(std::u16string_view wide) const;

  // The bytes of one character.
  std::string Encode(char32_t code) const;

  // Whether the charset has a character; whether it has all of a text.
  bool Holds(char32_t code) const;
  bool Holds(std::u16string_view wide) const;

  // The bytes that `text`, which is in this charset, has in `to`.
  std::string Convert(const TextView& text, const Charset& to) const;

  friend bool operator==(const Charset&, const Charset&) = default;

 private:
  BytePos CharacterStart(const TextView& text, BytePos at) const;

  const CodePage* page_ = nullptr;
};

// Whether a text has no byte of 0x80 or above, and so is the same in every charset.
bool IsAscii(const TextView& text);

void AppendUtf16(char32_t code, std::u16string& wide);

}  // namespace tarrow
