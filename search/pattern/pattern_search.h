// Looks for a compiled pattern in a text, forwards or backwards.
//
// The first place, in the order of the search, at which the pattern matches wins, and there the first way to
// match in the matcher's greedy order.
#pragma once

#include "search/pattern/regex_matcher.h"

namespace tarrow {

// Returns the offset at which a match begins, kNoMatch, or kMatcherOverflow. A positive `range` tries the
// places start .. start + range - 1, and start + range too when the bytes before it were passed over by the
// first-character map; a negative one start, start - 1, ... . A range of 0 tries nothing; a backward search
// with range -start reaches place 0. Places outside the text are not tried. Fills `registers`, if there are
// any, when there is a match. Polls `progress`, if there is one, and lets its CYieldException through. With a
// `stop` no match reaches beyond it, though anchors look at the text behind it.
[[nodiscard]] std::int32_t SearchPattern(CompiledPattern& pattern, const TextView& text, BytePos start,
                                         std::int32_t range, MatchRegisters* registers = nullptr,
                                         Progress* progress = nullptr,
                                         std::optional<BytePos> stop = std::nullopt);

}  // namespace tarrow
