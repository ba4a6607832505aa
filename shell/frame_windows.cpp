// The frame's windows: how they are laid out, closed, and listed.
#include "framework/text_resources.h"
#include "shell/frame.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

namespace tarrow {

void CTwFrame::ArrangeWindows(bool maximise) {
  CMDIChildWnd* active = ActiveChild();
  if (!active) return;
  switch (Settings().arrange) {
    case ArrangeMode::kTileAcross:
      ::SendMessageW(Client(), WM_MDITILE, MDITILE_VERTICAL, 0);
      break;
    case ArrangeMode::kCascade:
      ::SendMessageW(Client(), WM_MDICASCADE, 0, 0);
      break;
    case ArrangeMode::kTileDown:
      ::SendMessageW(Client(), WM_MDITILE, MDITILE_HORIZONTAL, 0);
      break;
    case ArrangeMode::kMaximised:
      if (maximise) MaximiseChild(*active);
      break;
  }
}

void CTwFrame::OnTileAcross() {
  Settings().arrange = ArrangeMode::kTileAcross;
  ArrangeWindows(false);
}

void CTwFrame::OnTileDown() {
  Settings().arrange = ArrangeMode::kTileDown;
  ArrangeWindows(false);
}

void CTwFrame::OnCascade() {
  Settings().arrange = ArrangeMode::kCascade;
  ArrangeWindows(false);
}

void CTwFrame::OnArrangeIcons() {
  ::SendMessageW(Client(), WM_MDIICONARRANGE, 0, 0);
}

void CTwFrame::OnCloseWindow() {
  if (const CMDIChildWnd* active = ActiveChild())
    active->Post(WM_CLOSE);
  else
    Alert(MB_ICONEXCLAMATION, nullptr);
}

void CTwFrame::OnCloseAll() {
  if (!QueryCloseAll()) return;
  WaitState wait(*this, true);
  ForEachChild([this](CMDIChildWnd& child) {
    ::SendMessageW(Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(child.Handle()), 0);
    return true;
  });
}

void CTwFrame::OnSelector() {
  if (selector_.Exists())
    ::SetForegroundWindow(selector_.Handle());
  else if (!selector_.Open(*this, LoadText(kTextWindowSelector)))
    ReportOutOfMemory();
}

void CTwFrame::ChildOpened(CMDIChildWnd& child) {
  selector_.Add(child);
}

void CTwFrame::ChildRetitled(CMDIChildWnd& child) {
  selector_.Retitle(child);
}

void CTwFrame::ChildClosed(CMDIChildWnd& child) {
  selector_.Remove(child);
}

void CTwFrame::ChildActivated(CMDIChildWnd& child, bool first) {
  selector_.Select(child);
  if (!first) return;
  ShowStatus({}, 0);
  DirectoryChanged();
  Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kEdit));
}

void CTwFrame::ChildDeactivated(CMDIChildWnd&, bool last) {
  if (!last) return;
  if (statusBar_.Exists()) statusBar_.ShowIdle();
  find_.CloseDialog();
  DirectoryChanged();
  Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kNoDocument));
}

}  // namespace tarrow
