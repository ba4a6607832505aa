// Where the line around a position begins and ends, found by looking from the position outward.
//
// A line ends at CR LF and nowhere else; a lone CR or LF is a character like any other. The cost is the
// length of the line, whatever the size of the text. A position between a CR and its LF belongs to the line
// that they end.
#pragma once

#include "base/text_view.h"

#include <optional>

namespace tarrow {

// Whether CR LF begins at `p`.
bool AtLineBreak(TextView text, BytePos p);

// Whether `p` lies between a CR and its LF.
bool InsideLineBreak(TextView text, BytePos p);

// `selection` with an end that lies inside a line break moved out of it: a caret before it, a selection
// around it.
TextRange OutsideLineBreaks(TextView text, TextRange selection);

// The first character of the line that holds `p`.
BytePos LineStart(TextView text, BytePos p);

// The line break, or the end of the text, that ends the line that holds `p`.
BytePos LineEnd(TextView text, BytePos p);

// The start of the line after the one that holds `p`, or nothing when that is the last.
std::optional<BytePos> NextLineStart(TextView text, BytePos p);

}  // namespace tarrow
