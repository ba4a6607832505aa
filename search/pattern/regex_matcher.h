// Tries a compiled pattern at one place of a text.
//
// The matcher backtracks: closures take as much as they can and give back step by step. Time is bounded by
// nothing but the user's patience, which is why it polls; memory is bounded by the failure stack.
#pragma once

#include "base/progress.h"
#include "base/text_view.h"
#include "search/pattern/compiled_pattern.h"

namespace tarrow {

// What MatchAt and SearchPattern return instead of a length or an offset.
inline constexpr std::int32_t kNoMatch = -1;
inline constexpr std::int32_t kMatcherOverflow =
    -2;  // the failure stack is full; callers take it as no match

// Returns the length of the match of `pattern` that begins at `position`, kNoMatch, or kMatcherOverflow. No
// byte at or beyond `stop` is consumed, though anchors look at the text behind it. Fills `registers`, if
// there are any, when there is a match. Polls `progress`, if there is one, and lets its CYieldException
// through.
[[nodiscard]] std::int32_t MatchAt(CompiledPattern& pattern, const TextView& text, BytePos position,
                                   BytePos stop, MatchRegisters* registers = nullptr,
                                   Progress* progress = nullptr);

}  // namespace tarrow
