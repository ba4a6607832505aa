// A pattern as the find dialog, the global search and the console take it: a text with two options.
#pragma once

#include "search/pattern/compiled_pattern.h"

#include <string_view>

namespace tarrow {

struct FindOptions {
  bool matchCase = true;
  bool wholeWord = false;  // the match begins and ends with a word
};

// Compiles `text` under `options` into `compiled`, ready to search with: the first-character map is there
// too. Nothing is thrown.
[[nodiscard]] PatternError CompileFindPattern(std::string_view text, FindOptions options,
                                              CompiledPattern& compiled);

}  // namespace tarrow
