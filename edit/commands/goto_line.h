// Goto Line: which line a typed number means, and how far to scroll so that it is not left at the bottom.
#pragma once

#include "base/units.h"

namespace tarrow {

// The line of a number that counts from 1; 0 means the first, a number beyond the end the last.
LineNo GotoLineTarget(std::uint64_t number, std::int32_t lineCount);

// By how many lines to scroll down when `target` is in view, `linesInView` from `firstVisible` on: half the
// view when it is the bottom line, but never beyond the last line; otherwise 0.
std::int32_t LinesToScroll(LineNo target, LineNo firstVisible, std::int32_t linesInView,
                           std::int32_t lineCount);

}  // namespace tarrow
