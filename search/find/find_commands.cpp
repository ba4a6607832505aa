#include "search/find/find_commands.h"

#include "edit/control/text_control.h"
#include "edit/documents/child.h"
#include "framework/text_resources.h"
#include "search/find/find_in_view.h"
#include "search/find/find_in_window.h"
#include "search/find/match_place.h"
#include "ui/program/help_topics.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <new>
#include <utility>

namespace tarrow {

namespace {

constexpr int kStatusSeconds = 5;

RECT ClientOnScreen(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  return client;
}

// Where the selection of the text stands on the screen, as far as the window shows it.
Box ScreenBoxOf(const TextControl& control) {
  TextRange selection = control.Selection();
  POINT start = control.PointOf(selection.start), end = control.PointOf(selection.end);
  RECT client = ClientOnScreen(control.Handle());
  auto x = [&](LONG of) { return static_cast<int>(std::clamp(client.left + of, client.left, client.right)); };
  auto y = [&](LONG of) { return static_cast<int>(std::clamp(client.top + of, client.top, client.bottom)); };
  bool isOneLine = start.y == end.y;
  return {isOneLine ? x(start.x) : x(0), y(start.y),
          isOneLine ? x(end.x + 1) : static_cast<int>(client.right), y(end.y + control.LineHeight())};
}

}  // namespace

constinit const MessageMap FindCommands::kMessageMap = MessageMap::Make<
    nullptr, OnCommandRange<kSearchFind, kSearchReplaceNext, &FindCommands::OnFind, &FindCommands::StateOf>,
    OnRegistered<&kFindReplaceMessage, &FindCommands::OnNotification>,
    OnRegistered<&kCommonDialogHelp, &FindCommands::OnDialogHelp>,
    On<kNoDocumentMessage, &FindCommands::OnNoDocument>>();

FindCommands::FindCommands(CMDIFrameWnd& frame, Documents& documents, Messages& messages, StatusLine& status,
                           Waiting& waiting, Help& help)
    : frame_(frame),
      documents_(documents),
      messages_(messages),
      status_(status),
      waiting_(waiting),
      help_(help) {}

FindCommands::~FindCommands() {
  CloseDialog();
}

SearchableFile* FindCommands::File() const {
  return dynamic_cast<SearchableFile*>(documents_.ActiveDocument());
}

bool FindCommands::CanRun(bool changes) const {
  const TextControl* control = Text();
  if (changes) return control && !control->IsReadOnly();
  return control || File();
}

void FindCommands::OnFind(UINT id) {
  bool opens = id == kSearchFind || id == kSearchReplace;
  bool changes = id == kSearchReplace || id == kSearchReplaceNext;
  if (opens && dialog_)
    ::SetActiveWindow(dialog_->Handle());
  else if (!CanRun(changes))
    Warn();
  else if (opens)
    Guarded([&] { OpenDialog(id == kSearchFind); });
  else
    Guarded([&] { Search(id); });
}

CommandState FindCommands::StateOf(UINT id) const {
  bool changes = id == kSearchReplace || id == kSearchReplaceNext;
  bool opens = id == kSearchFind || id == kSearchReplace;
  if (opens && dialog_) return {};
  return {CanRun(changes), false};
}

void FindCommands::Search(UINT id) {
  state_.searchForward = id != kSearchFindPrev;
  if (TextControl* control = Text()) {
    FindInWindow window = In(*control, BoxOwner());
    if (id != kSearchReplaceNext) window.TakeSelection();
    if (window.Find() && id == kSearchReplaceNext) window.ReplaceSelection();
    MoveDialogAside(window, *control);
  } else if (SearchableFile* file = File()) {
    FindInFile(*file, true);
  }
}

// The window of the file may have been closed during the search.
void FindCommands::FindInFile(SearchableFile& file, bool takesSelection) {
  FindInView view = In(file, BoxOwner());
  if (takesSelection) view.TakeSelection();
  view.Find();
  if (!dialog_ || File() != &file || !file.IsAtMatch()) return;
  RECT match = file.MatchOnScreen();
  dialog_->MoveAside({match.left, match.top, match.right, match.bottom});
}

void FindCommands::OpenDialog(bool findOnly) {
  HWND frame = frame_.Handle();
  if (TextControl* control = Text())
    In(*control, frame).TakeSelection();
  else if (SearchableFile* file = File())
    In(*file, frame).TakeSelection();
  auto* dialog = new CTwFindReplaceDialog(state_, ClientOnScreen(frame), [this] { dialog_ = nullptr; });
  if (dialog->Show(findOnly, frame))
    dialog_ = dialog;
  else
    messages_.ReportOutOfMemory();
}

LRESULT FindCommands::OnNotification(WPARAM, LPARAM l) {
  CFindReplaceDialog* sender = CFindReplaceDialog::FromNotification(l);
  if (!dialog_ || sender != dialog_) return 0;
  if (dialog_->IsClosing())
    ForgetDialog();
  else
    ObeyDialog();
  return 0;
}

void FindCommands::ForgetDialog() {
  dialog_->RememberPlace();
  dialog_ = nullptr;
  ::SetActiveWindow(frame_.Handle());
}

void FindCommands::ObeyDialog() {
  if (!CanRun(!dialog_->IsFindOnly())) return Warn();
  TakeFields(*dialog_);
  Guarded([&] { Obey(*dialog_); });
  if (dialog_) ::SetWindowPos(dialog_->Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

void FindCommands::TakeFields(CTwFindReplaceDialog& dialog) {
  std::string pattern = dialog.FindWhat();
  bool isAnother = dialog.TakeTextChanged() || pattern != state_.pattern;
  if (isAnother) state_.needsCompile = true;
  state_.pattern = std::move(pattern);
  state_.searchForward = dialog.SearchDown();
  if (!dialog.IsFindOnly()) state_.replacement = dialog.Replacement();
  state_.SetOptions(dialog.MatchCase(), dialog.MatchWholeWord());
  state_.selectionOnly = dialog.SelectionOnly();
}

// With an unchanged pattern Replace replaces the last match at once, if it is still what is selected.
void FindCommands::Obey(CTwFindReplaceDialog& dialog) {
  TextControl* control = Text();
  if (!control) return FindInFile(*File(), false);
  FindInWindow window = In(*control, BoxOwner());
  auto find = [&] { return state_.selectionOnly ? window.FindInSelection() : window.Find(); };
  if (dialog.IsReplaceAll()) return Report(window.ReplaceAll());
  if (dialog.IsFindNext()) find();
  if (dialog.IsReplace()) {
    bool isFound = !state_.needsCompile && window.IsAtMatch();
    if (isFound || find()) window.ReplaceSelection();
  }
  MoveDialogAside(window, *control);
}

void FindCommands::Report(std::size_t replacements) {
  if (replacements == 0) return;
  status_.ShowStatus(FormatTextResource(kTextReplaced, {replacements}), kStatusSeconds);
}

// Moves the dialog off what has been found or put there, and back onto the screen.
void FindCommands::MoveDialogAside(const FindInWindow& window, const TextControl& control) {
  if (dialog_ && window.IsOwn()) dialog_->MoveAside(ScreenBoxOf(control));
}

LRESULT FindCommands::OnDialogHelp(WPARAM, LPARAM) {
  if (dialog_) help_.ShowHelp(dialog_->Handle(), dialog_->IsFindOnly() ? kFindTopic : kReplaceTopic);
  return 0;
}

LRESULT FindCommands::OnNoDocument(WPARAM, LPARAM) {
  CloseDialog();
  return 0;
}

FindInWindow FindCommands::In(TextControl& control, HWND boxOwner) {
  return FindInWindow(messages_, waiting_, state_, control, boxOwner);
}

FindInView FindCommands::In(SearchableFile& file, HWND boxOwner) {
  return FindInView(frame_.Handle(), documents_, messages_, waiting_, state_, file, boxOwner);
}

void FindCommands::CloseDialog() {
  if (dialog_) dialog_->Send(WM_COMMAND, IDCANCEL);
}

HWND FindCommands::BoxOwner() const {
  if (dialog_) return dialog_->Handle();
  const CTwChild* document = documents_.ActiveDocument();
  return document ? document->Handle() : frame_.Handle();
}

template <typename Action>
void FindCommands::Guarded(Action action) {
  try {
    action();
  } catch (const CYieldException&) {
    Warn();
    status_.ShowStatusId(kTextCancelled, kStatusSeconds);
  } catch (const CFileException& error) {
    messages_.ShowFileError(nullptr, error);
  } catch (const CMemoryException&) {
    messages_.ReportOutOfMemory();
  } catch (const std::bad_alloc&) {
    messages_.ReportOutOfMemory();
  }
}

}  // namespace tarrow
