// From the pattern that a user typed to byte code.
//
// The dialect: . * + ? ^ $ [...] [^...] \( \) \1..\9 \< \> \t; a backslash before anything else makes it a
// literal. No alternation, no counted repetition. Closures bind to the last item, and a run of literals is
// one item: "ab+" repeats "ab". Only "*" takes the last literal alone. The meaning is deliberate, and so is
// the code: the same pattern gives the same bytes.
#pragma once

#include "search/pattern/compiled_pattern.h"

#include <string_view>

namespace tarrow {

// Compiles `pattern` for `compiled.foldCase` and stores the code. After an error there is no code; nothing is
// thrown. The first-character map is invalid afterwards; the searcher computes it when it first needs it.
[[nodiscard]] PatternError CompilePattern(std::string_view pattern, CompiledPattern& compiled);

// The number of the message that tells a user of `error`, which is not kNone.
int PatternErrorMessage(PatternError error);

}  // namespace tarrow
