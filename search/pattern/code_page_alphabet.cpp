#include "search/pattern/code_page_alphabet.h"

#include "edit/text/letters.h"

namespace tarrow {
namespace {

constexpr char kAnyTrail = '\x40';

// The character that the byte is by itself; 0 if it begins a pair.
char32_t CharacterOf(std::uint8_t byte, const Charset& charset) {
  char bytes[] = {static_cast<char>(byte), kAnyTrail};
  Character c = charset.At(TextView({bytes, sizeof bytes}), BytePos(0));
  return c.length == 1 ? c.code : 0;
}

// The byte of the same letter in upper case; the byte itself where the page has none, or only an ASCII one.
std::uint8_t Upper(std::uint8_t byte, char32_t code, const Charset& charset) {
  std::string upper = charset.Encode(ConvertCase(code, LetterCase::kUpper));
  bool isLetter = upper.size() == 1 && static_cast<std::uint8_t>(upper[0]) >= 0x80;
  return isLetter ? static_cast<std::uint8_t>(upper[0]) : byte;
}

}  // namespace

std::shared_ptr<const ByteAlphabet> AlphabetOf(const Charset& charset) {
  auto alphabet = std::make_shared<ByteAlphabet>(AsciiAlphabet());
  for (unsigned i = 0x80; i < 256; ++i) {
    auto byte = static_cast<std::uint8_t>(i);
    char32_t code = CharacterOf(byte, charset);
    if (code < 0x80) continue;
    alphabet->fold[byte] = Upper(byte, code, charset);
    alphabet->isWord[byte] = IsWordCharacter(code);
  }
  alphabet->words = ByteClass(alphabet->isWord);
  return alphabet;
}

}  // namespace tarrow
