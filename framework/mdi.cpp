#include "framework/mdi.h"

#include "framework/unicode.h"

#include <algorithm>
#include <utility>

namespace tarrow {

constinit const MessageMap CMDIFrameWnd::kMessageMap = MessageMap::Make<&CWnd::kMessageMap>();
constinit const MessageMap CMDIChildWnd::kMessageMap = MessageMap::Make<&CWnd::kMessageMap>();

bool CMDIFrameWnd::CreateFrame(const WindowClass& windowClass, const WindowSpec& spec) {
  return Create(windowClass, spec);
}

bool CMDIFrameWnd::CreateClient(HMENU windowMenu) {
  CLIENTCREATESTRUCT create{windowMenu, kFirstWindowId};
  client_ =
      ::CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr,
                        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL,
                        0, 0, 0, 0, Handle(), reinterpret_cast<HMENU>(1), ModuleInstance(), &create);
  return client_ != nullptr;
}

CMDIChildWnd* CMDIFrameWnd::ActiveChild() const {
  auto active = reinterpret_cast<HWND>(::SendMessageW(client_, WM_MDIGETACTIVE, 0, 0));
  return dynamic_cast<CMDIChildWnd*>(FromHandle(active));
}

bool CMDIFrameWnd::ActiveChildIsMaximised() const {
  BOOL maximised = FALSE;
  ::SendMessageW(client_, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&maximised));
  return maximised != FALSE;
}

std::vector<HWND> CMDIFrameWnd::Children() const {
  std::vector<HWND> children;
  for (HWND w = ::GetWindow(client_, GW_CHILD); w; w = ::GetWindow(w, GW_HWNDNEXT))
    if (!::GetWindow(w, GW_OWNER)) children.push_back(w);  // an owned window is an icon title
  return children;
}

// Activating comes first: among maximised children it changes the order of others, too.
void CMDIFrameWnd::Restack(const std::vector<HWND>& children) const {
  if (children.empty()) return;
  ::SendMessageW(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(children.front()), 0);
  for (auto child = children.rbegin(); child != children.rend(); ++child)
    ::SetWindowPos(*child, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

bool CMDIFrameWnd::ForEachChild(const std::function<bool(CMDIChildWnd&)>& visit) const {
  for (HWND w : Children())
    if (auto* child = dynamic_cast<CMDIChildWnd*>(FromHandle(w)); child && !visit(*child)) return false;
  return true;
}

// The client window writes the title when that of the child is set; Wine forgets to when a child is created
// maximised or activated while the client window is hidden.
void CMDIFrameWnd::RefreshTitle() const {
  CMDIChildWnd* active = ActiveChild();
  if (!active || !ActiveChildIsMaximised()) return;
  std::string title = active->Text();
  if (Text().find(title) == std::string::npos) active->SetText(title);
}

void CMDIFrameWnd::HideChildren() {
  ::ShowWindow(client_, SW_HIDE);
}

// While it is hidden the client window does not notice that a maximised child needs none of its scroll bars.
void CMDIFrameWnd::ShowChildren() {
  CMDIChildWnd* active = ActiveChild();
  if (std::exchange(maximisesWhenShown_, false) && active && !::IsIconic(active->Handle()))
    MaximiseChild(*active);
  if (ActiveChildIsMaximised()) ::ShowScrollBar(client_, SB_BOTH, FALSE);
  ::ShowWindow(client_, SW_SHOW);
  RefreshTitle();
  if (active) ::SetFocus(active->Handle());
  ::UpdateWindow(client_);
}

// Whether the children are hidden, so that the next one need not come maximised; the active one stops being
// it, for a child that is made beside a maximised one is made maximised.
bool CMDIFrameWnd::DefersMaximising() {
  if (::GetWindowLongW(client_, GWL_STYLE) & WS_VISIBLE) return false;
  CMDIChildWnd* active = ActiveChild();
  if (active && ActiveChildIsMaximised()) {
    ::ShowWindow(active->Handle(), SW_SHOWNORMAL);
    maximisesWhenShown_ = true;
  }
  return true;
}

// The active child goes last: with every active child that goes, the system activates another.
void CMDIFrameWnd::DestroyChildren() {
  CMDIChildWnd* active = ActiveChild();
  std::vector<HWND> children = Children();
  if (active) std::ranges::partition(children, [&](HWND child) { return child != active->Handle(); });
  for (HWND child : children) ::SendMessageW(client_, WM_MDIDESTROY, reinterpret_cast<WPARAM>(child), 0);
}

void CMDIFrameWnd::ActivateChild(CMDIChildWnd& child) {
  if (::IsIconic(child.Handle()))
    ::SendMessageW(client_, WM_MDIRESTORE, reinterpret_cast<WPARAM>(child.Handle()), 0);
  ::SendMessageW(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child.Handle()), 0);
}

void CMDIFrameWnd::MaximiseChild(CMDIChildWnd& child) {
  ::SendMessageW(client_, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child.Handle()), 0);
}

void CMDIFrameWnd::TellTargets(UINT message) {
  for (CommandTarget* target : targets_) {
    LRESULT ignored = 0;
    target->HandleMessage(message, 0, 0, ignored);
  }
}

bool CMDIFrameWnd::QueryCommand(UINT id, CommandState& state) const {
  CMDIChildWnd* child = client_ ? ActiveChild() : nullptr;
  if (child && child->QueryCommand(id, state)) return true;
  for (const CommandTarget* target : targets_)
    if (target->QueryCommand(id, state)) return true;
  return CWnd::QueryCommand(id, state);
}

bool CMDIFrameWnd::RunCommand(UINT id, UINT code, HWND control, LRESULT& result) {
  if (!control) {
    CMDIChildWnd* child = ActiveChild();
    if (child && child->RunCommand(id, code, control, result)) return true;
    for (CommandTarget* target : targets_)
      if (target->RunCommand(id, code, control, result)) return true;
  }
  return CWnd::RunCommand(id, code, control, result);
}

LRESULT CMDIFrameWnd::WindowProc(UINT message, WPARAM w, LPARAM l) {
  if (message != WM_COMMAND && !GetMessageMap().Find(message))
    for (CommandTarget* target : targets_)
      if (LRESULT result = 0; target->HandleMessage(message, w, l, result)) return result;
  return CWnd::WindowProc(message, w, l);
}

LRESULT CMDIFrameWnd::DefaultProc(UINT message, WPARAM w, LPARAM l) {
  return ::DefFrameProcW(Handle(), client_, message, w, l);
}

bool CMDIChildWnd::CreateChild(CMDIFrameWnd& frame, const WindowClass& windowClass, std::string_view title,
                               DWORD style, bool maximised) {
  frame_ = &frame;
  bool isDeferred = frame.DefersMaximising();
  if (isDeferred && std::exchange(maximised, false)) frame.maximisesWhenShown_ = true;
  WindowSpec spec;
  spec.title = ToWide(title);
  spec.style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_OVERLAPPEDWINDOW | WS_VISIBLE | style |
               (maximised ? WS_MAXIMIZE : 0);
  spec.exStyle = WS_EX_MDICHILD;
  spec.parent = frame.Client();
  if (!Create(windowClass, spec)) return false;
  if (!isDeferred) frame.RefreshTitle();
  return true;
}

bool CMDIChildWnd::IsActive() const {
  return frame_->ActiveChild() == this;
}

LRESULT CMDIChildWnd::DefaultProc(UINT message, WPARAM w, LPARAM l) {
  return ::DefMDIChildProcW(Handle(), message, w, l);
}

// These the MDI keeps its own books by: they reach it whatever a handler did.
LRESULT CMDIChildWnd::WindowProc(UINT message, WPARAM w, LPARAM l) {
  LRESULT result = CWnd::WindowProc(message, w, l);
  if (!Exists() || DefaultWasCalled()) return result;
  switch (message) {
    case WM_CHILDACTIVATE:
    case WM_GETMINMAXINFO:
    case WM_MENUCHAR:
    case WM_MOVE:
    case WM_SETFOCUS:
    case WM_SIZE:
    case WM_SYSCOMMAND:
      return Default();
    default:
      return result;
  }
}

}  // namespace tarrow
