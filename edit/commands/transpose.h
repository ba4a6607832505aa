// Transpose: the characters on both sides of the caret change places, or two lines do.
//
// Inside a line the characters; at its start the line and the one above; at its end the line and the one
// below. An empty line counts as the start of one. The caret stays in its line. A line end stays between the
// two lines when the second of them has none.
#pragma once

#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/text/charset.h"

namespace tarrow {

// A selection, the start and the end of the text, and a last line with no text below it are refused with
// Beep::kStop.
EditOutcome Transpose(TextView text, TextRange selection, Charset charset);

}  // namespace tarrow
