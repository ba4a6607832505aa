// The editing commands as one table: what each does to a text, and when it can.
//
// A command that works on text and selection alone has a function here; the others (clipboard, undo, dialogs,
// toggles) are done by their window, and stand here for the second question, which menus and keys ask too.
// Marks are not there yet, and known all the same.
#pragma once

#include "base/progress.h"
#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/commands/indentation.h"
#include "edit/text/charset.h"
#include "ui/commands/commands.h"

#include <cstdint>
#include <span>

namespace tarrow {

// What a command is given. The selection never has an end inside a line break.
struct EditingContext {
  TextView text;
  TextRange selection;
  Charset charset;
  IndentSettings indent;
  Progress* progress = nullptr;
};

using EditingFunction = EditOutcome (*)(const EditingContext& context);

struct EditingCommand {
  CommandId id;
  bool needsSelection;
  bool changesText;
  EditingFunction run = nullptr;
};

[[nodiscard]] std::span<const EditingCommand> EditingCommandTable();

// The row of a command, or null when it is no editing command.
[[nodiscard]] const EditingCommand* FindEditingCommand(std::uint32_t id);

// Whether `command` can act on a selection in a window with those flags (child_flags.h).
[[nodiscard]] bool CanEdit(const EditingCommand& command, TextRange selection, std::uint32_t childFlags);

// Runs a command that has a function; the selection may be any. Throws CMemoryException, std::bad_alloc and
// what the progress throws.
EditOutcome RunEditingCommand(const EditingCommand& command, EditingContext context);

}  // namespace tarrow
