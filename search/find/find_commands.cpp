#include "search/find/find_commands.h"

#include "framework/mdi.h"
#include "search/find/find_in_window.h"
#include "ui/program/string_ids.h"

#include <new>
#include <utility>

namespace tarrow {

namespace {

constexpr int kStatusSeconds = 5;
constexpr unsigned kFindHelp = 1, kReplaceHelp = 2;

bool IsFindCommand(UINT id) {
  return id >= kSearchFind && id <= kSearchReplaceNext;
}

RECT ClientOnScreen(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  return client;
}

}  // namespace

FindCommands::FindCommands(Host& host, std::function<TextControl*()> activeText)
    : host_(host), activeText_(std::move(activeText)) {}

FindCommands::~FindCommands() {
  CloseDialog();
}

bool FindCommands::Run(UINT id) {
  if (!IsFindCommand(id)) return false;
  TextControl* control = activeText_();
  bool opens = id == kSearchFind || id == kSearchReplace;
  bool changes = id == kSearchReplace || id == kSearchReplaceNext;
  if (opens && dialog_)
    ::SetActiveWindow(dialog_->Handle());
  else if (!control || (changes && control->IsReadOnly()))
    Warn();
  else if (opens)
    OpenDialog(id == kSearchFind);
  else
    Guarded([&] { Search(*control, id); });
  return true;
}

CommandState FindCommands::State(UINT id) const {
  TextControl* control = activeText_();
  bool changes = id == kSearchReplace || id == kSearchReplaceNext;
  bool opens = id == kSearchFind || id == kSearchReplace;
  if (opens && dialog_) return {};
  return {control && !(changes && control->IsReadOnly()), false};
}

void FindCommands::Search(TextControl& control, UINT id) {
  FindInWindow window(host_, state_, control, BoxOwner(control));
  state_.searchForward = id != kSearchFindPrev;
  if (id != kSearchReplaceNext) window.TakeSelection();
  if (window.Find() && id == kSearchReplaceNext) window.ReplaceSelection();
}

void FindCommands::OpenDialog(bool findOnly) {
  HWND frame = host_.Frame().Handle();
  FindInWindow(host_, state_, *activeText_(), frame).TakeSelection();
  auto* dialog = new CTwFindReplaceDialog(state_, ClientOnScreen(frame), [this] { dialog_ = nullptr; });
  if (dialog->Show(findOnly, frame))
    dialog_ = dialog;
  else
    host_.ReportOutOfMemory();
}

void FindCommands::OnNotification(LPARAM l) {
  CFindReplaceDialog* sender = CFindReplaceDialog::FromNotification(l);
  if (!dialog_ || sender != dialog_) return;
  if (dialog_->IsClosing()) {
    dialog_->RememberPlace();
    dialog_ = nullptr;
    ::SetActiveWindow(host_.Frame().Handle());
    return;
  }
  TextControl* control = activeText_();
  if (!control || (!dialog_->IsFindOnly() && control->IsReadOnly())) return Warn();
  TakeFields(*dialog_);
  Guarded([&] { Obey(*dialog_, *control); });
  if (dialog_) ::SetWindowPos(dialog_->Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void FindCommands::TakeFields(CTwFindReplaceDialog& dialog) {
  std::string pattern = dialog.FindWhat();
  bool isAnother = dialog.TakeTextChanged() || pattern != state_.pattern;
  if (isAnother) state_.needsCompile = true;
  state_.pattern = std::move(pattern);
  state_.searchForward = dialog.SearchDown();
  if (!dialog.IsFindOnly()) state_.replacement = dialog.ReplaceWith();
  state_.SetOptions(dialog.MatchCase(), dialog.MatchWholeWord());
  state_.selectionOnly = dialog.SelectionOnly();
}

// With an unchanged pattern the selection is the last match, and Replace replaces it at once.
void FindCommands::Obey(CTwFindReplaceDialog& dialog, TextControl& control) {
  FindInWindow window(host_, state_, control, BoxOwner(control));
  if (dialog.IsReplaceAll()) return window.ReplaceAll();
  if (dialog.IsFindNext()) return void(window.Find());
  if (!dialog.IsReplace()) return;
  bool isFound = !state_.needsCompile && !state_.selectionOnly;
  if (isFound || window.Find()) window.ReplaceSelection();
}

void FindCommands::OnHelp() {
  if (dialog_) host_.ShowHelp(dialog_->Handle(), dialog_->IsFindOnly() ? kFindHelp : kReplaceHelp);
}

void FindCommands::CloseDialog() {
  if (dialog_) dialog_->Send(WM_COMMAND, IDCANCEL);
}

HWND FindCommands::BoxOwner(const TextControl& control) const {
  return dialog_ ? dialog_->Handle() : ::GetParent(control.Handle());
}

template <typename Action>
void FindCommands::Guarded(Action action) {
  try {
    action();
  } catch (const CYieldException&) {
    Warn();
    host_.ShowStatusId(kTextCancelled, kStatusSeconds);
  } catch (const CMemoryException&) {
    host_.ReportOutOfMemory();
  } catch (const std::bad_alloc&) {
    host_.ReportOutOfMemory();
  }
}

}  // namespace tarrow
