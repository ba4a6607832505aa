#include "shell/commands/document_windows.h"

#include "edit/documents/file_edit.h"
#include "framework/text_resources.h"
#include "ui/commands/commands.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"
#include "viewer/views/file_view.h"

namespace tarrow {

constinit const MessageMap DocumentWindows::kMessageMap = MessageMap::Make<
    nullptr, OnCommand<kFileClose, &DocumentWindows::OnCloseWindow, &DocumentWindows::HasWindow>,
    OnCommandRange<kWindowTileVert, kWindowCascade, &DocumentWindows::OnLayout, &DocumentWindows::HasWindow>,
    OnCommand<kWindowArrange, &DocumentWindows::OnArrangeIcons, &DocumentWindows::HasWindow>,
    OnCommand<kWindowCloseAll, &DocumentWindows::OnCloseAll, &DocumentWindows::HasWindow>,
    OnCommand<kWindowSelector, &DocumentWindows::OnSelector>>();

DocumentWindows::DocumentWindows(const DocumentServices& services, CWinSelector& selector, Bars& bars,
                                 MenuBars& menus)
    : services_(services), frame_(services.frame), selector_(selector), bars_(bars), menus_(menus) {}

void DocumentWindows::Arrange(bool maximise) {
  CMDIChildWnd* active = frame_.ActiveChild();
  if (!active) return;
  switch (services_.settings.arrange) {
    case ArrangeMode::kTileAcross:
      ::SendMessageW(frame_.Client(), WM_MDITILE, MDITILE_VERTICAL, 0);
      break;
    case ArrangeMode::kCascade:
      ::SendMessageW(frame_.Client(), WM_MDICASCADE, 0, 0);
      break;
    case ArrangeMode::kTileDown:
      ::SendMessageW(frame_.Client(), WM_MDITILE, MDITILE_HORIZONTAL, 0);
      break;
    case ArrangeMode::kMaximised:
      if (maximise) frame_.MaximiseChild(*active);
      break;
  }
}

void DocumentWindows::OnLayout(UINT id) {
  services_.settings.arrange = id == kWindowTileVert   ? ArrangeMode::kTileAcross
                               : id == kWindowTileHorz ? ArrangeMode::kTileDown
                                                       : ArrangeMode::kCascade;
  Arrange(false);
}

void DocumentWindows::OnArrangeIcons() {
  ::SendMessageW(frame_.Client(), WM_MDIICONARRANGE, 0, 0);
}

void DocumentWindows::OnCloseWindow() {
  if (const CMDIChildWnd* active = frame_.ActiveChild())
    active->Post(WM_CLOSE);
  else
    services_.messages.Alert(MB_ICONEXCLAMATION);
}

// A window that asks comes to the front; once all agree they stand as they stood, for the session's sake.
bool DocumentWindows::QueryCloseAll() {
  std::vector<HWND> windows = frame_.Children();
  if (!frame_.ForEachChild([](CMDIChildWnd& child) { return child.Send(WM_QUERYENDSESSION) != 0; }))
    return false;
  if (frame_.Children() != windows) frame_.Restack(windows);
  return true;
}

void DocumentWindows::OnCloseAll() {
  if (QueryCloseAll()) CloseAll();
}

void DocumentWindows::CloseAll() {
  WaitState wait(services_.waiting, true);
  frame_.DestroyChildren();
}

void DocumentWindows::OnSelector() {
  if (selector_.Exists())
    ::SetForegroundWindow(selector_.Handle());
  else if (!selector_.Open(frame_, LoadText(kTextWindowSelector)))
    services_.messages.ReportOutOfMemory();
}

void DocumentWindows::ApplySettings(bool withFont) {
  frame_.ForEachChild([&](CMDIChildWnd& child) {
    const LOGFONTW* font = withFont ? &services_.screenFont : nullptr;
    if (auto* edit = dynamic_cast<CTwFileEdit*>(&child)) edit->ApplySettings(font);
    if (auto* view = dynamic_cast<CFileView*>(&child)) view->ApplySettings(font);
    return true;
  });
}

void DocumentWindows::ChildOpened(CMDIChildWnd& child) {
  selector_.Add(child);
}

void DocumentWindows::ChildRetitled(CMDIChildWnd& child) {
  selector_.Retitle(child);
}

void DocumentWindows::ChildClosed(CMDIChildWnd& child) {
  selector_.Remove(child);
}

void DocumentWindows::ChildActivated(CMDIChildWnd& child, bool first) {
  selector_.Select(child);
  frame_.Post(kInFrontMessage);
  if (!first) return;
  bars_.ShowStatus({}, 0);
  frame_.Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kEdit));
}

void DocumentWindows::ChildDeactivated(CMDIChildWnd&, bool last) {
  if (!last) return;
  bars_.ShowIdle();
  frame_.TellTargets(kNoDocumentMessage);
  frame_.Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kNoDocument));
}

void DocumentWindows::ShowPopupMenu(POINT screen) {
  ::TrackPopupMenu(menus_.Popup(), TPM_LEFTALIGN | TPM_RIGHTBUTTON, screen.x, screen.y, 0, frame_.Handle(),
                   nullptr);
}

}  // namespace tarrow
