// What an editing command asks for: changes to the text, the selection after them, or a refusal.
//
// Editing commands are pure functions: text and selection in, an EditOutcome out. Whoever holds the text
// applies it.
#pragma once

#include "edit/text/edit_list.h"

namespace tarrow {

// How a command that cannot act says so.
enum class Beep { kNone, kPlain, kExclamation, kStop, kInformation };

struct EditOutcome {
  EditList edits;
  TextRange selection;  // in the text as the edits leave it
  Beep beep = Beep::kNone;

  static EditOutcome Select(TextRange selection) { return {{}, selection, Beep::kNone}; }
  static EditOutcome Refuse(TextRange selection, Beep beep) { return {{}, selection, beep}; }
};

}  // namespace tarrow
