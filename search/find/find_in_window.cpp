#include "search/find/find_in_window.h"

#include "edit/control/clipboard_text.h"
#include "framework/text_resources.h"
#include "search/find/find_boxes.h"
#include "search/find/find_text.h"
#include "search/find/replace_all.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"

namespace tarrow {

namespace {

Replacement MakeReplacement(const FindState& state, const TextControl& control) {
  Replacement replacement(state.replacement, control.TextCharset());
  if (replacement.UsesClipboard())
    replacement.SetClipboard(
        TextFromClipboard(control.Handle(), control.TextCharset()).value_or(std::string()));
  return replacement;
}

}  // namespace

void FindInWindow::TakeSelection() {
  TakeSelectionAsPattern(state_, control_.View(), control_.Selection(), control_.TextCharset());
}

bool FindInWindow::Find() {
  CProgressBox box(boxOwner_, FormatTextResource(kTextSearching, {state_.pattern}));
  FindBoxes boxes(messages_, waiting_, box, boxOwner_, state_);
  std::optional<TextRange> found =
      FindText(state_, control_.View(), control_.Selection(), control_.TextCharset(), boxes, &box);
  if (!found) return false;
  control_.Select(*found);
  control_.PostCaretMoved();
  return true;
}

void FindInWindow::ReplaceSelection() {
  BytePos start = control_.Selection().start;
  std::string inserted;
  MakeReplacement(state_, control_).Build(control_.View(), state_.registers, inserted);
  if (!control_.ReplaceSelection(inserted, EditKind::kForgotten)) return;
  control_.Select(start, start + static_cast<std::int64_t>(inserted.size()));
  control_.PostCaretMoved();
}

void FindInWindow::ReplaceAll() {
  if (int message = CompileIfNeeded(state_, control_.TextCharset())) return Complain(message);
  ReplaceAllResult result;
  {
    WaitState wait(waiting_);
    CProgressBox box(boxOwner_, FormatTextResource(kTextReplacing, {state_.pattern}));
    TextRange whole{BytePos(0), control_.Buffer().End()};
    TextRange region = state_.selectionOnly ? control_.Selection() : whole;
    result = tarrow::ReplaceAll(state_.compiled, control_.ContiguousText(), region,
                                MakeReplacement(state_, control_), &box);
    if (!result.edits.Empty()) ApplyAll(result.edits);
  }
  if (result.outOfMemory) return messages_.ReportOutOfMemory();
  if (result.edits.Empty()) Complain(kTextNotFound);
}

// The caret ends behind the text inserted last.
void FindInWindow::ApplyAll(const EditList& edits) {
  Edit last = edits[edits.Size() - 1];
  BytePos caret = last.range.end + edits.Growth();
  control_.Apply(edits, {caret, caret});
  control_.PostCaretMoved();
}

void FindInWindow::Complain(int message) {
  messages_.ShowMessageBox(boxOwner_, MB_OK | MB_ICONEXCLAMATION, message, {state_.pattern});
}

}  // namespace tarrow
