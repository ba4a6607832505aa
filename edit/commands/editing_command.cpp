#include "edit/commands/editing_command.h"

#include "edit/commands/case_change.h"
#include "edit/commands/child_flags.h"
#include "edit/commands/match_brace.h"
#include "edit/commands/shift_lines.h"
#include "edit/commands/transpose.h"
#include "edit/commands/word_movement.h"
#include "edit/text/line_bounds.h"

#include <algorithm>

namespace tarrow {

namespace {

using Context = EditingContext;

template <LetterCase To>
EditOutcome Convert(const Context& c) {
  return ChangeCase(c.text, c.selection, To, c.charset);
}

template <int Direction>
EditOutcome Shift(const Context& c) {
  return ShiftLines(c.text, c.selection, Direction * c.indent.shiftWidth, c.indent);
}

template <WordMove Move, bool Extend>
EditOutcome MoveWord(const Context& c) {
  return EditOutcome::Select(MoveByWord(c.text, c.selection, Move, Extend, c.charset));
}

EditOutcome TransposeAt(const Context& c) {
  return Transpose(c.text, c.selection, c.charset);
}

EditOutcome FindBrace(const Context& c) {
  return MatchBrace(c.text, c.selection, c.progress);
}

EditOutcome DeleteSelection(const Context& c) {
  if (c.selection.Empty()) return EditOutcome::Refuse(c.selection, Beep::kPlain);
  BytePos caret = c.selection.start;
  bool joins = c.text.At(caret - 1) == '\r' && c.text.At(c.selection.end) == '\n';
  if (joins) --caret;  // a line end comes about around it
  EditOutcome outcome{{}, {caret, caret}, Beep::kNone};
  outcome.edits.Add(c.selection, {});
  return outcome;
}

constexpr EditingCommand kCommands[] = {
    // command, needs a selection, changes the text
    {kEditUndo, false, true},
    {kEditRepeat, false, false},
    {kEditCut, true, true},
    {kEditCopy, true, false},
    {kEditCutAppend, true, true, DeleteSelection},
    {kEditCopyAppend, true, false},
    {kEditPaste, false, true},
    {kEditMerge, false, true},
    {kEditUpper, false, true, Convert<LetterCase::kUpper>},
    {kEditLower, false, true, Convert<LetterCase::kLower>},
    {kEditShiftLeft, false, true, Shift<-1>},
    {kEditShiftRight, false, true, Shift<+1>},
    {kEditTranspose, false, true, TransposeAt},
    {kEditMoveBackEnd, false, false, MoveWord<WordMove::kBackEnd, false>},
    {kEditSelBackEnd, false, false, MoveWord<WordMove::kBackEnd, true>},
    {kEditMoveBackStart, false, false, MoveWord<WordMove::kBackStart, false>},
    {kEditSelBackStart, false, false, MoveWord<WordMove::kBackStart, true>},
    {kEditMoveFwdEnd, false, false, MoveWord<WordMove::kForwardEnd, false>},
    {kEditSelFwdEnd, false, false, MoveWord<WordMove::kForwardEnd, true>},
    {kEditMoveFwdStart, false, false, MoveWord<WordMove::kForwardStart, false>},
    {kEditSelFwdStart, false, false, MoveWord<WordMove::kForwardStart, true>},
    {kSearchMark, false, false},
    {kSearchGotoMark, false, false},
    {kSearchGotoLine, false, false},
    {kSearchMatchBrace, false, false, FindBrace},
    {kSetInsert, false, false},
    {kSetAlign, false, false},
    {kSetIndent, false, false},
    {kSetReadOnly, false, false},
    {kSetClean, false, false},
};

}  // namespace

std::span<const EditingCommand> EditingCommandTable() {
  return kCommands;
}

const EditingCommand* FindEditingCommand(std::uint32_t id) {
  auto row = std::ranges::find(kCommands, id, &EditingCommand::id);
  return row == std::end(kCommands) ? nullptr : row;
}

bool CanEdit(const EditingCommand& command, TextRange selection, std::uint32_t childFlags) {
  if (command.needsSelection && selection.Empty()) return false;
  return !(command.changesText && (childFlags & kReadOnly));
}

EditOutcome RunEditingCommand(const EditingCommand& command, EditingContext context) {
  context.selection = OutsideLineBreaks(context.text, context.selection);
  return command.run(context);
}

}  // namespace tarrow
