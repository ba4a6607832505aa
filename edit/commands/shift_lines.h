// Shift Left and Shift Right: the indentation of the selected lines, changed by some columns.
//
// A selection that ends at the start of a line includes that line. Empty lines are indented too by a shift to
// the right; that is meant.
#pragma once

#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/commands/indentation.h"

namespace tarrow {

// Shifts the lines of `selection` by `columns` (negative: to the left). Throws CMemoryException when the text
// would grow beyond its limit.
EditOutcome ShiftLines(TextView text, TextRange selection, int columns, const IndentSettings& settings);

}  // namespace tarrow
