// The keys and clicks that mean more in a text window than in a plain edit control.
#include "edit/commands/auto_indent.h"
#include "edit/commands/child_flags.h"
#include "edit/commands/typing.h"
#include "edit/commands/word_movement.h"
#include "edit/documents/file_edit_commands.h"
#include "ui/program/string_ids.h"

namespace tarrow {

bool EditingCommands::OnCharacter(char32_t code) {
  if (IsReadOnly()) {
    if (!IsRefusedWhenReadOnly(code)) return false;
    owner_.Beep(MB_ICONEXCLAMATION);
    return true;
  }
  if (code == U'\r') return Has(kAlignLines) && BreakLineIndented();
  if (code == U'\t') return program_.settings.expandTabs && TypeTab();
  return Has(kOvertype) && TypeOver(code);
}

bool EditingCommands::TypeTab() {
  EditOutcome outcome = TypeTabAsSpaces(control_.View(), control_.Selection(), program_.settings.tabSize,
                                        control_.TextCharset());
  control_.Replace(outcome.edits[0].range, outcome.edits[0].text, EditKind::kTyping);
  return true;
}

bool EditingCommands::BreakLineIndented() {
  EditOutcome outcome = BreakLine(control_.View(), control_.Selection(), Indent(), Has(kIndentBlocks));
  control_.Replace(outcome.edits[0].range, outcome.edits[0].text, EditKind::kTyping);
  return true;
}

bool EditingCommands::TypeOver(char32_t code) {
  TextRange selection = control_.Selection();
  if (OvertypeRange(control_.View(), selection, code, control_.TextCharset()) == selection) return false;
  std::u16string wide;
  AppendUtf16(code, wide);
  if (!control_.MakeRoomFor(wide)) return true;
  const Charset& charset = control_.TextCharset();
  TextRange range = OvertypeRange(control_.View(), control_.Selection(), code, charset);
  control_.Replace(range, charset.Encode(code), EditKind::kTyping);
  return true;
}

// One answer, other than to insert nothing, holds for as long as the window lives.
MissingCharacters EditingCommands::OnMissingCharacters() {
  if (missing_) return *missing_;
  constexpr UINT kBox = MB_YESNOCANCEL | MB_ICONQUESTION;
  int answer = program_.messages.ShowMessageBox(nullptr, kBox, kTextConvertToUtf8, {owner_.EditName()});
  if (answer != IDYES && answer != IDNO) return MissingCharacters::kRefuse;
  missing_ = answer == IDYES ? MissingCharacters::kConvert : MissingCharacters::kSubstitute;
  return *missing_;
}

bool EditingCommands::OnKeyDown(UINT key, bool shift, bool control) {
  if (control && (key == VK_HOME || key == VK_END)) RememberPosition();
  if (key != VK_HOME || control || shift) return false;
  BytePos home = HomePosition(control_.View(), control_.Selection());
  control_.Select(home, home);
  return true;
}

bool EditingCommands::OnDoubleClick(BytePos at) {
  if (owner_.OnTextDoubleClick(at)) return true;
  if (program_.settings.Has(kSpaceDelimitsWords)) return false;
  control_.Select(WordAround(control_.View(), at, control_.TextCharset()));
  return true;
}

}  // namespace tarrow
