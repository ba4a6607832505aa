#include "search/pattern/char_tables.h"

namespace tarrow {
namespace {

constexpr FoldTable MakeFoldTable(bool folding) {
  FoldTable table{};
  for (int c = 0; c < 256; ++c)
    table[c] = static_cast<std::uint8_t>(folding && c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return table;
}

constexpr std::array<bool, 256> MakeWordTable() {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c)
    table[c] = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
  return table;
}

}  // namespace

constinit const FoldTable kFoldToUpper = MakeFoldTable(true);
constinit const FoldTable kFoldNothing = MakeFoldTable(false);
constinit const std::array<bool, 256> kWordChars = MakeWordTable();

const ByteClass& WordClass() {
  static const ByteClass words(kWordChars);
  return words;
}

const ByteAlphabet& AsciiAlphabet() {
  static const ByteAlphabet ascii{kFoldToUpper, kWordChars, WordClass()};
  return ascii;
}

}  // namespace tarrow
