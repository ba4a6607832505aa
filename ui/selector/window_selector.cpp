#include "ui/selector/window_selector.h"

#include "framework/unicode.h"

namespace tarrow {
namespace {

constexpr WindowClass kClass{L"CWinSelector"};
constexpr int kWidth = 200, kHeight = 150;  // pixels

}  // namespace

constinit const MessageMap CWinSelector::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_CREATE, &CWinSelector::OnCreate>,
                     On<WM_SIZE, &CWinSelector::OnSize>, On<WM_SETFOCUS, &CWinSelector::OnSetFocus>,
                     On<WM_VKEYTOITEM, &CWinSelector::OnListKey>,
                     OnNotify<kListId, LBN_SELCHANGE, &CWinSelector::OnActivateChoice>>();

bool CWinSelector::Open(CMDIFrameWnd& frame, std::string_view title) {
  frame_ = &frame;
  int screenWidth = ::GetSystemMetrics(SM_CXSCREEN), screenHeight = ::GetSystemMetrics(SM_CYSCREEN);
  WindowSpec spec;
  spec.title = ToWide(title);
  spec.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
  spec.exStyle = WS_EX_TOOLWINDOW;
  spec.bounds = {screenWidth - 1 - kWidth, (screenHeight - kHeight) / 2, kWidth, kHeight};
  spec.parent = frame.Handle();
  if (!Create(kClass, spec)) return false;
  frame.ForEachChild([&](CMDIChildWnd& child) {
    Add(child);
    return true;
  });
  if (const CMDIChildWnd* active = frame.ActiveChild()) Select(*active);
  ::ShowWindow(Handle(), SW_SHOW);
  return true;
}

bool CWinSelector::OnCreate(const CREATESTRUCTW&) {
  list_ = ::CreateWindowExW(
      0, L"LISTBOX", nullptr,
      WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_WANTKEYBOARDINPUT, 0, 0, 0,
      0, Handle(), reinterpret_cast<HMENU>(UINT_PTR{kListId}), ModuleInstance(), nullptr);
  if (!list_) return false;
  ::SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), FALSE);
  return true;
}

void CWinSelector::OnSize(UINT, int width, int height) {
  ::MoveWindow(list_, 0, 0, width, height, TRUE);
}

void CWinSelector::OnSetFocus(HWND) {
  ::SetFocus(list_);
}

// Return goes to the chosen window, Escape closes the selector; the list deals with all other keys.
LRESULT CWinSelector::OnListKey(WPARAM w, LPARAM) {
  UINT key = LOWORD(w);
  if (key == VK_RETURN) {
    OnActivateChoice();
    ::SetFocus(frame_->Handle());
    return -2;
  }
  if (key == VK_ESCAPE) {
    Post(WM_CLOSE);
    return -2;
  }
  return -1;
}

void CWinSelector::OnActivateChoice() {
  auto row = ::SendMessageW(list_, LB_GETCURSEL, 0, 0);
  if (row < 0) return;
  auto window = reinterpret_cast<HWND>(::SendMessageW(list_, LB_GETITEMDATA, static_cast<WPARAM>(row), 0));
  if (auto* child = dynamic_cast<CMDIChildWnd*>(FromHandle(window))) frame_->ActivateChild(*child);
}

int CWinSelector::Find(HWND child) const {
  auto count = static_cast<int>(::SendMessageW(list_, LB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i)
    if (reinterpret_cast<HWND>(::SendMessageW(list_, LB_GETITEMDATA, static_cast<WPARAM>(i), 0)) == child)
      return i;
  return -1;
}

void CWinSelector::Add(const CMDIChildWnd& child) {
  if (!Exists()) return;
  std::wstring title = ToWide(child.Text());
  auto row = ::SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(title.c_str()));
  if (row >= 0)
    ::SendMessageW(list_, LB_SETITEMDATA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(child.Handle()));
}

void CWinSelector::Remove(const CMDIChildWnd& child) {
  if (!Exists()) return;
  if (int row = Find(child.Handle()); row >= 0)
    ::SendMessageW(list_, LB_DELETESTRING, static_cast<WPARAM>(row), 0);
}

void CWinSelector::Select(const CMDIChildWnd& child) {
  if (Exists()) ::SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(Find(child.Handle())), 0);
}

void CWinSelector::Retitle(const CMDIChildWnd& child) {
  if (!Exists()) return;
  Remove(child);
  Add(child);
  if (child.IsActive()) Select(child);
}

void CWinSelector::SetUpdating(bool updating) {
  if (!Exists()) return;
  ::SendMessageW(list_, WM_SETREDRAW, updating, 0);
  if (updating) ::InvalidateRect(list_, nullptr, TRUE);
}

}  // namespace tarrow
