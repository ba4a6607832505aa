#include "search/find/find_in_window.h"

#include "edit/control/clipboard_text.h"
#include "framework/text_resources.h"
#include "search/find/find_boxes.h"
#include "search/find/find_text.h"
#include "search/find/match_place.h"
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

OwnSelection FindInWindow::Here() const {
  return {&control_, control_.Buffer().Changes(), control_.Selection()};
}

void FindInWindow::TakeSelection() {
  if (IsAtMatch()) return;
  TakeSelectionAsPattern(state_, control_.View(), control_.Selection(), control_.TextCharset());
}

// Calls `findIt` with whom to ask and what to poll, and selects what it finds.
template <typename FindIt>
bool FindInWindow::FindBy(FindIt findIt) {
  CProgressBox box(boxOwner_, FormatTextResource(kTextSearching, {state_.pattern}));
  FindBoxes boxes(messages_, waiting_, box, boxOwner_, state_);
  std::optional<TextRange> found = findIt(boxes, &box);
  if (!found) return false;
  control_.Select(*found);
  ShowMatch(*found);
  state_.own = Here();
  state_.ownIsMatch = true;
  control_.PostCaretMoved();
  return true;
}

bool FindInWindow::Find() {
  state_.scope.reset();
  return FindBy([&](FindDialogue& user, Progress* progress) {
    return FindText(state_, control_.View(), control_.Selection(), control_.TextCharset(), user, progress);
  });
}

bool FindInWindow::FindInSelection() {
  bool isFirst = !state_.scope || !IsOwn();
  if (isFirst) state_.scope = control_.Selection();
  TextRange rest{isFirst ? state_.scope->start : control_.Selection().end, state_.scope->end};
  return FindBy([&](FindDialogue& user, Progress* progress) {
    return FindTextWithin(state_, control_.View(), rest, isFirst, control_.TextCharset(), user, progress);
  });
}

void FindInWindow::ShowMatch(TextRange match) {
  const TextBuffer& text = control_.Buffer();
  LineView view{control_.TopLine(), control_.LinesInView(), text.LastLine()};
  LineNo top = TopForMatch(view, text.LineOf(match.start), text.LineOf(match.end));
  control_.ScrollBy(0, top - view.top);
}

void FindInWindow::ReplaceSelection() {
  TextRange replaced = control_.Selection();
  BytePos start = replaced.start;
  std::string inserted;
  MakeReplacement(state_, control_).Build(control_.View(), state_.registers, inserted);
  EditKind kind = control_.HasUndoLevels() ? EditKind::kCommand : EditKind::kForgotten;
  if (!control_.ReplaceSelection(inserted, kind)) return;
  auto size = static_cast<std::int64_t>(inserted.size());
  control_.Select(start, start + size);
  if (state_.scope) state_.scope->end += size - replaced.Length();
  state_.own = Here();
  state_.ownIsMatch = false;
  control_.PostCaretMoved();
}

std::size_t FindInWindow::ReplaceAll() {
  if (int message = CompileIfNeeded(state_, control_.TextCharset(), control_.View())) {
    Complain(message);
    return 0;
  }
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
  if (result.outOfMemory)
    messages_.ReportOutOfMemory();
  else if (result.edits.Empty())
    Complain(kTextNotFound);
  return result.edits.Size();
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
