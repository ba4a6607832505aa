// Match Brace: the partner of the bracket at the caret, or of the one just before it.
//
// Only brackets of the same kind count; quotes, comments and other kinds are text like any other.
#pragma once

#include "base/progress.h"
#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"

namespace tarrow {

// Selects the partner; without one the outcome is a refusal with Beep::kInformation. Throws CYieldException
// when `progress` does.
EditOutcome MatchBrace(TextView text, TextRange selection, Progress* progress = nullptr);

}  // namespace tarrow
