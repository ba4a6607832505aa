// What rooms may ask of the frame.
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "shell/frame.h"
#include "shell/message_box.h"
#include "ui/program/string_ids.h"

namespace tarrow {

int CTwFrame::ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) {
  return tarrow::ShowMessageBox(owner ? owner : Handle(), style, id, args);
}

void CTwFrame::Alert(UINT sound, const CMDIChildWnd* window) {
  HWND flashed = nullptr;
  if (Settings().Has(kVisibleAlerts))
    flashed = window && !::IsZoomed(window->Handle()) ? window->Handle() : Handle();
  Beep(sound, flashed);
}

void CTwFrame::ShowFileError(HWND owner, const CFileException& error) {
  Alert(MB_ICONSTOP, nullptr);
  ShowMessageBox(owner, MB_ICONEXCLAMATION, kTextFileError, {error.Path(), FileCauseText(error.Cause())});
}

void CTwFrame::ReportOutOfMemory() {
  Alert(MB_ICONEXCLAMATION, nullptr);
  ShowStatusId(kTextOutOfMemory, 5);
}

void CTwFrame::ShowStatus(std::string_view text, int seconds) {
  if (statusBar_.Exists()) statusBar_.ShowMessage(text, seconds);
}

void CTwFrame::ShowStatusId(int id, int seconds) {
  if (statusBar_.Exists()) statusBar_.ShowMessageId(id, seconds);
}

void CTwFrame::PublishCaret(int line, int column) {
  if (statusBar_.Exists()) statusBar_.SetCaret(line, column);
}

void CTwFrame::PublishIndicator(Indicator indicator, int state) {
  if (statusBar_.Exists()) statusBar_.SetIndicator(indicator, state);
}

void CTwFrame::BeginWait(bool hideWindows) {
  if (waits_.empty()) cursorBeforeWait_ = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  waits_.push_back(hideWindows);
  if (!hideWindows || hidingWaits_++ > 0) return;
  ::ShowWindow(Client(), SW_HIDE);
  selector_.SetUpdating(false);
}

void CTwFrame::EndWait() {
  bool hid = waits_.back();
  waits_.pop_back();
  if (hid && --hidingWaits_ == 0) {
    ShowWindows();
    selector_.SetUpdating(true);
  }
  if (waits_.empty()) ::SetCursor(cursorBeforeWait_);
}

// While it is hidden the client window does not notice that a maximised child needs none of its scroll bars.
void CTwFrame::ShowWindows() {
  if (ActiveChildIsMaximised()) ::ShowScrollBar(Client(), SB_BOTH, FALSE);
  ::ShowWindow(Client(), SW_SHOW);
  RefreshTitle();
  if (CMDIChildWnd* active = ActiveChild()) ::SetFocus(active->Handle());
  ::UpdateWindow(Client());
}

void CTwFrame::ShowPopupMenu(POINT screen) {
  ::TrackPopupMenu(menus_.Popup(), TPM_LEFTALIGN | TPM_RIGHTBUTTON, screen.x, screen.y, 0, Handle(), nullptr);
}

LOGFONTW CTwFrame::ScreenFont() const {
  return program_.screenFont;
}

void CTwFrame::ShowHelp(HWND owner, unsigned context) {
  ::WinHelpW(owner ? owner : Handle(), ToWide(program_.helpFile).c_str(), HELP_CONTEXT, context);
}

}  // namespace tarrow
