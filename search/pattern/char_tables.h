// What patterns know of single characters: how case is folded and what makes up a word.
//
// Both are facts about ASCII alone. Bytes of 0x80 and above fold to themselves and belong to no word,
// whatever the text's character set, so that a pattern means the same in every file.
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

}  // namespace tarrow
