// Lists of names in one line of text, as a command line or a field of a dialog holds them.
//
// Words are separated by runs of blanks (the space alone: a tab is part of a word). Double quotes hold blanks
// within a word and are not part of it; no name on a disk has one. A quote that is never closed reaches to
// the end of the text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// Takes the first word off the front of `text`, with the blanks before it. Empty at the end of the text, and
// for a word that is nothing but a pair of quotes.
[[nodiscard]] std::string TakeWord(std::string_view& text);

// Every word of `text`; empty ones ("") are left out.
[[nodiscard]] std::vector<std::string> SplitWords(std::string_view text);

// The text whose words these are: separated by blanks, in quotes where a word holds a blank.
[[nodiscard]] std::string JoinWords(const std::vector<std::string>& words);

}  // namespace tarrow
