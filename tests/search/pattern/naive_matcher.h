// The meaning of byte code written down as plainly as can be, to compare the engine with: one operation at a
// time, one byte at a time, one failure point at a time, over a string.
#pragma once

#include "search/pattern/compiled_pattern.h"

#include <string>

namespace tarrow::naive {

struct Limits {
  long steps = 1'000'000;
};

// The results are those of MatchAt and SearchPattern, or kOutOfSteps when `limits.steps` were not enough.
inline constexpr int kOutOfSteps = -3;

int MatchAt(CompiledPattern& pattern, const std::string& text, int position, int stop,
            MatchRegisters& registers, Limits& limits);

int SearchPattern(CompiledPattern& pattern, const std::string& text, int start, int range,
                  MatchRegisters& registers, Limits& limits);

}  // namespace tarrow::naive
