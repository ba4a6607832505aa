// What patterns know of single bytes: how case is folded and what makes up a word.
//
// By themselves both are facts about ASCII alone: bytes of 0x80 and above fold to themselves and belong to no
// word. A text in a code page of one byte a character has an alphabet that knows its other letters too.
#pragma once

#include "base/byte_class.h"

#include <array>
#include <cstdint>

namespace tarrow {

using FoldTable = std::array<std::uint8_t, 256>;

// 'a'..'z' become 'A'..'Z'; every other byte stands for itself.
extern const FoldTable kFoldToUpper;

// Every byte stands for itself: folding switched off.
extern const FoldTable kFoldNothing;

// Letters, digits and the underscore.
extern const std::array<bool, 256> kWordChars;

// The same as a class to scan for.
const ByteClass& WordClass();

inline bool IsWordChar(char c) {
  return kWordChars[static_cast<unsigned char>(c)];
}

struct ByteAlphabet {
  FoldTable fold;  // to upper case
  std::array<bool, 256> isWord;
  ByteClass words;  // the same to scan for

  bool IsWord(char c) const { return isWord[static_cast<unsigned char>(c)]; }
};

const ByteAlphabet& AsciiAlphabet();

}  // namespace tarrow
