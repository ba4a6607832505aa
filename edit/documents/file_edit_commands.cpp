#include "edit/documents/file_edit_commands.h"

#include "edit/commands/child_flags.h"
#include "edit/commands/goto_line.h"
#include "edit/control/clipboard_text.h"
#include "edit/documents/goto_line_dialog.h"
#include "framework/text_resources.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <new>
#include <optional>

namespace tarrow {

namespace {

constexpr int kStatusSeconds = 5;
constexpr int kLinesAtOnce = 3;  // more are worth an hourglass

UINT SoundOf(Beep beep) {
  switch (beep) {
    case Beep::kExclamation:
      return MB_ICONEXCLAMATION;
    case Beep::kStop:
      return MB_ICONSTOP;
    case Beep::kInformation:
      return MB_ICONINFORMATION;
    default:
      return MB_OK;
  }
}

}  // namespace

EditingCommands::EditingCommands(const DocumentServices& program, TextControl& control, EditingOwner& owner)
    : program_(program), control_(control), owner_(owner) {
  control.SetHooks(this);
}

bool EditingCommands::Run(UINT id) {
  const EditingCommand* command = FindEditingCommand(id);
  if (!command) return false;
  if (command->changesText && IsReadOnly()) {
    owner_.Beep(MB_ICONEXCLAMATION);
    return true;
  }
  try {
    Do(*command);
  } catch (const CYieldException&) {
    owner_.Beep(MB_ICONEXCLAMATION);
    program_.status.ShowStatusId(kTextCancelled, kStatusSeconds);
  } catch (const CMemoryException&) {
    program_.messages.ReportOutOfMemory();
  } catch (const std::bad_alloc&) {
    program_.messages.ReportOutOfMemory();
  }
  control_.PostCaretMoved();
  return true;
}

CommandState EditingCommands::State(UINT id) const {
  const EditingCommand* command = FindEditingCommand(id);
  if (!command) return {false, false};
  bool enabled = CanEdit(*command, control_.Selection(), owner_.EditFlags());
  if (command->changesText && control_.IsReadOnly()) enabled = false;
  if (id == kEditUndo) enabled = enabled && control_.CanUndo();
  if (id == kEditRepeat && control_.HasUndoLevels()) enabled = control_.CanRedo() && !IsReadOnly();
  if (id == kEditPaste) enabled = enabled && HasClipboardText();
  if (id == kSetClean) enabled = Has(kModified);
  return {enabled, IsChecked(id)};
}

bool EditingCommands::IsChecked(UINT id) const {
  switch (id) {
    case kSetInsert:
      return !Has(kOvertype);
    case kSetAlign:
      return Has(kAlignLines);
    case kSetIndent:
      return Has(kIndentBlocks);
    case kSetReadOnly:
      return Has(kReadOnly);
    default:
      return false;
  }
}

void EditingCommands::Do(const EditingCommand& command) {
  switch (command.id) {
    case kEditUndo:
      return Undo();
    case kEditRepeat:
      return Repeat();
    case kEditCut:
      return Cut();
    case kEditCopy:
      return void(control_.Copy());
    case kEditCopyAppend:
      return void(AppendToClipboard());
    case kEditCutAppend:
      if (AppendToClipboard()) Play(command);
      return;
    case kEditPaste:
      return Paste();
    case kSearchGotoLine:
      return GotoLine();
    case kSetInsert:
    case kSetAlign:
    case kSetIndent:
    case kSetReadOnly:
      return Toggle(command.id);
    case kSetClean:
      return owner_.MarkClean();
    case kSearchMark:
    case kSearchGotoMark:
      program_.messages.ShowMessageBox(nullptr, MB_OK | MB_ICONEXCLAMATION, kTextUnimplemented);
      return;
    default:
      if (command.run) Play(command);
  }
}

void EditingCommands::Play(const EditingCommand& command) {
  TextRange selection = control_.Selection();
  const TextBuffer& text = control_.Buffer();
  bool isLong = text.LineOf(selection.end) - text.LineOf(selection.start) >= kLinesAtOnce;
  std::optional<WaitState> wait;
  if (command.changesText && isLong) wait.emplace(program_.waiting);
  CProgressBox box(program_.frame.Handle(), LoadText(kTextChanging));
  Show(RunEditingCommand(command, {control_.View(), selection, control_.TextCharset(), Indent(), &box}),
       command.id);
}

void EditingCommands::Show(const EditOutcome& outcome, CommandId id) {
  if (outcome.beep == Beep::kNone) return void(control_.Apply(outcome.edits, outcome.selection));
  owner_.Beep(SoundOf(outcome.beep));
  if (id == kSearchMatchBrace) program_.status.ShowStatusId(kTextNoMatchingBrace, kStatusSeconds);
}

void EditingCommands::Undo() {
  if (!control_.UndoLast()) owner_.Beep(MB_ICONEXCLAMATION);
}

void EditingCommands::Repeat() {
  if (control_.HasUndoLevels() && !control_.RedoNext()) owner_.Beep(MB_ICONEXCLAMATION);
}

// With one level of undo, what is cut and pasted is all that can be taken back from then on.
void EditingCommands::Cut() {
  if (control_.Selection().Empty()) return;
  if (!control_.HasUndoLevels()) control_.EmptyUndo();
  control_.Cut();
}

void EditingCommands::Paste() {
  if (!HasClipboardText()) return;
  if (!control_.HasUndoLevels()) control_.EmptyUndo();
  control_.Paste();
}

// False when nothing was appended; what is not on the clipboard must not be cut either.
bool EditingCommands::AppendToClipboard() {
  TextRange selection = control_.Selection();
  if (selection.Empty()) {
    owner_.Beep(MB_OK);
    return false;
  }
  Charset own = control_.TextCharset(), charset = own;
  if (!own.Holds(ForeignTextFromClipboard(control_.Handle(), own))) charset = Charset();
  std::string text = TextFromClipboard(control_.Handle(), charset).value_or(std::string());
  TextView selected = control_.View().Sub(selection);
  if (charset == own)
    text.append(selected.head).append(selected.tail);
  else
    text += own.Convert(selected, charset);
  return PutOnClipboard(control_.Handle(), TextView(text), charset);
}

// A target that would be the bottom line in view is moved up, so that what follows can be seen.
void EditingCommands::GotoLine() {
  const TextBuffer& text = control_.Buffer();
  BytePos previous = std::min(previousPosition_, text.End());
  CGotoLineDialog dialog(text.LineOf(previous).value + 1);
  if (dialog.DoModal(program_.frame.Handle()) != IDOK) return;
  RememberPosition();
  std::int32_t lines = text.LineCount().value;
  LineNo target = GotoLineTarget(static_cast<std::uint64_t>(dialog.Number()), lines);
  BytePos start = text.LineStart(target);
  control_.Select(start, start);
  control_.ScrollBy(0, LinesToScroll(target, control_.TopLine(), control_.LinesInView(), lines));
}

void EditingCommands::Toggle(CommandId id) {
  std::uint32_t flags = owner_.EditFlags();
  if (id == kSetInsert) flags ^= kOvertype;
  if (id == kSetAlign) flags = ToggleAlignLines(flags);
  if (id == kSetIndent) flags = ToggleIndentBlocks(flags);
  if (id == kSetReadOnly) flags ^= kReadOnly;
  control_.SetReadOnly((flags & kReadOnly) != 0);
  owner_.ChangeEditFlags(flags);
}

IndentSettings EditingCommands::Indent() const {
  const GlobalSettings& settings = program_.settings;
  return {settings.tabSize, settings.shiftWidth, settings.expandTabs};
}

}  // namespace tarrow
