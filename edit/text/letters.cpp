#include "edit/text/letters.h"

#include "edit/text/letter_tables.h"

#include <memory>

namespace tarrow {

namespace {

constexpr char32_t kFirstWide = 0x10000, kFirstIdeograph = 0x20000, kLastIdeograph = 0x3FFFF;

const LetterTables& Tables() {
  static const std::unique_ptr<const LetterTables> tables = [] {
    auto made = std::make_unique<LetterTables>();
    FillLetterTables(*made);
    made->isWord['_'] = true;
    return made;
  }();
  return *tables;
}

void AppendCharacter(std::string& out, const TextView& text, BytePos at, Character c, LetterCase to,
                     Charset charset) {
  char32_t code = c.length > 0 ? ConvertCase(c.code, to) : c.code;
  if (code != c.code) {
    std::string bytes = charset.Encode(code);
    if (bytes != "?") return void(out += bytes);
  }
  for (std::int32_t i = 0; i < c.length; ++i) out += text[at + i];
}

}  // namespace

bool IsWordCharacter(char32_t code) {
  if (code >= kFirstWide) return code >= kFirstIdeograph && code <= kLastIdeograph;
  return Tables().isWord[code];
}

char32_t ConvertCase(char32_t code, LetterCase to) {
  if (code >= kFirstWide) return code;
  return to == LetterCase::kUpper ? Tables().upper[code] : Tables().lower[code];
}

bool IsWordCharacter(const TextView& text, BytePos at, Charset charset) {
  return IsWordCharacter(charset.At(text, at).code);
}

void AppendConverted(std::string& out, const TextView& text, LetterCase to, Charset charset) {
  out.reserve(out.size() + static_cast<std::size_t>(text.Size()));
  const auto& table = to == LetterCase::kUpper ? Tables().upper : Tables().lower;
  for (BytePos at; at < text.End();) {
    auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x80) {
      out += static_cast<char>(table[byte]);
      ++at;
      continue;
    }
    Character c = charset.At(text, at);
    AppendCharacter(out, text, at, c, to, charset);
    at += c.length;
  }
}

}  // namespace tarrow
