// Upper Case and Lower Case.
#pragma once

#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/text/letters.h"

namespace tarrow {

// Converts the selection and selects it again. Without a selection it converts the character at the caret and
// moves past it; a line end is one character, which has no case.
EditOutcome ChangeCase(TextView text, TextRange selection, LetterCase to, Charset charset);

}  // namespace tarrow
