// A pattern as the find dialog, the global search and the console take it: a text with two options, put into
// the character set of the texts that are searched.
#pragma once

#include "edit/text/charset.h"
#include "search/pattern/compiled_pattern.h"

#include <string_view>

namespace tarrow {

struct FindOptions {
  bool matchCase = true;
  bool wholeWord = false;  // the match begins and ends with a word
};

// Compiles `text` under `options` into `compiled`, ready to search with: the first-character map is there
// too. The pattern is one of bytes; only ASCII letters have case and make words. Nothing is thrown.
[[nodiscard]] PatternError CompileFindPattern(std::string_view text, FindOptions options,
                                              CompiledPattern& compiled);

// The same for texts in `charset`, whose letters beyond ASCII have case and make words too; `text` is UTF-8.
// In a text that is all ASCII the result is that of the pattern of bytes.
[[nodiscard]] PatternError CompileFindPattern(std::string_view text, FindOptions options, Charset charset,
                                              CompiledPattern& compiled);

// Whether the pattern of bytes `compiled`, made of `text` with a first-character map, could find something
// else in UTF-8 beyond ASCII than the same pattern compiled for it.
bool NeedsUtf8(std::string_view text, const CompiledPattern& compiled);

}  // namespace tarrow
