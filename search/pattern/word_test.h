// Which characters of a text make up words, as patterns see it.
#pragma once

#include "edit/text/letters.h"
#include "search/pattern/utf8_text.h"

namespace tarrow {

inline bool IsWordInPattern(char32_t code) {
  return code < 0x80 ? kWordChars[code] : IsWordCharacter(code);
}

// Whether a word character of UTF-8 begins at `at`, which lies within the text, or ends there.
template <typename Text>
bool IsWordInUtf8(const Text& text, std::int32_t at) {
  return IsWordInPattern(Utf8At(text, at).code);
}

template <typename Text>
bool IsWordBeforeInUtf8(const Text& text, std::int32_t at) {
  return at > 0 && IsWordInUtf8(text, Utf8Start(text, at - 1));
}

}  // namespace tarrow
