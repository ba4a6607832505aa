// What Enter does in a window that maintains indentation, and where Home goes.
#pragma once

#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/commands/indentation.h"

namespace tarrow {

// Breaks the line at the selection and indents the new one as the line of the selection's start is, by
// `shiftWidth` more when `indentBlocks` is set and the last character before the selection's end that is no
// blank opens a block: "{", "(" or ":". Blanks behind the selection do not come along to the new line.
EditOutcome BreakLine(TextView text, TextRange selection, IndentSettings settings, bool indentBlocks);

// The first character of the selection's line that is no blank, or the start of the line when the selection
// begins there already.
BytePos HomePosition(TextView text, TextRange selection);

}  // namespace tarrow
