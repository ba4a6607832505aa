// Which characters make words, and their upper and lower case.
//
// For every character of 16 bits the platform's own tables say so, as they have always done for the ANSI
// code page: taken over once, at the first question. Beyond 16 bits ideographs are word characters, and
// letters have one case.
#pragma once

#include "edit/text/charset.h"

#include <string>

namespace tarrow {

enum class LetterCase { kUpper, kLower };

// A letter or digit by the platform's test, or "_".
[[nodiscard]] bool IsWordCharacter(char32_t code);

// The character in upper or lower case; itself when it has none.
[[nodiscard]] char32_t ConvertCase(char32_t code, LetterCase to);

// Whether a word character stands at `at`; none does at the end of the text.
[[nodiscard]] bool IsWordCharacter(const TextView& text, BytePos at, Charset charset);

// Appends `text` in upper or lower case to `out`. What is no character of the charset, and a letter whose
// other case the charset lacks, stays as it is.
void AppendConverted(std::string& out, const TextView& text, LetterCase to, Charset charset);

}  // namespace tarrow
