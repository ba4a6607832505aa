// Byte code in words, for whoever wants to know why a pattern matches what it matches.
#pragma once

#include "search/pattern/compiled_pattern.h"

#include <string>

namespace tarrow {

// Returns one line for each operation of `pattern`, ending in LF: its offset, its name, its operand. Jumps
// are shown with the offset they lead to, literals and sets as characters, other bytes as \xHH.
std::string DumpPattern(const CompiledPattern& pattern);

}  // namespace tarrow
