// How many characters of a line stand before a place: the column that a user counts.
//
// A line may be as long as any text, so the way through a long one is shortened by checkpoints, whose
// distance is a count of characters here.
#pragma once

#include "edit/control/line_layout.h"

namespace tarrow {

// The characters from the start of the line at `line` to `at`. `checkpoints` are for counting alone.
[[nodiscard]] std::int32_t CountCharacters(const TextView& text, BytePos line, BytePos at,
                                           const Charset& charset, LayoutCheckpoints& checkpoints);

}  // namespace tarrow
