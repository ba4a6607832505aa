#include "ui/selector/window_selector.h"

#include "framework/message_loop.h"
#include "framework/unicode.h"
#include "ui/selector/window_number.h"

#include <algorithm>
#include <cstdlib>

namespace tarrow {
namespace {

constexpr WindowClass kClass{.name = L"CWinSelector",
                             .background = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1)};
constexpr int kWidth = 200, kHeight = 150;  // pixels
constexpr int kMargin = 2, kWheelWidth = 18, kNumberWidth = 50;

HFONT DialogFont() {
  return static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
}

int FieldHeight() {
  LOGFONTW font{};
  ::GetObjectW(DialogFont(), sizeof font, &font);
  return std::abs(font.lfHeight) + 11;
}

}  // namespace

constinit const MessageMap CWinSelector::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_CREATE, &CWinSelector::OnCreate>,
                     On<WM_SIZE, &CWinSelector::OnSize>, On<WM_SETFOCUS, &CWinSelector::OnSetFocus>,
                     On<WM_NOTIFY, &CWinSelector::OnNotify>, OnCommand<IDOK, &CWinSelector::OnGoThere>,
                     OnCommand<IDCANCEL, &CWinSelector::OnEscape>,
                     tarrow::OnNotify<kListId, LBN_SELCHANGE, &CWinSelector::OnListChoice>,
                     tarrow::OnNotify<kListId, LBN_DBLCLK, &CWinSelector::OnGoThere>,
                     tarrow::OnNotify<kNumberId, EN_CHANGE, &CWinSelector::OnNumberTyped>>();

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
  MessageLoop::AddModeless(Handle());  // for the Tab, Enter and Escape of its controls
  frame.ForEachChild([&](CMDIChildWnd& child) {
    Add(child);
    return true;
  });
  if (const CMDIChildWnd* active = frame.ActiveChild()) Select(*active);
  ::ShowWindow(Handle(), SW_SHOW);
  return true;
}

bool CWinSelector::CreateList() {
  list_ = ::CreateWindowExW(
      0, L"LISTBOX", nullptr,
      WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, 0, 0, 0, 0,
      Handle(), reinterpret_cast<HMENU>(UINT_PTR{kListId}), ModuleInstance(), nullptr);
  return list_ != nullptr;
}

bool CWinSelector::OnCreate(const CREATESTRUCTW&) {
  if (!CreateList() || !number_.CreateField(Handle(), kNumberId) || !wheel_.CreateWheel(Handle(), kWheelId))
    return false;
  number_.onStep = [this](int step) { Activate(StepWindowNumber(Chosen(), step, Count())); };
  for (HWND control : {list_, number_.Handle()})
    ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
  return true;
}

void CWinSelector::OnSize(UINT, int width, int height) {
  int field = FieldHeight(), top = height - field - kMargin;
  ::MoveWindow(list_, 0, 0, width, std::max(top - kMargin, 0), TRUE);
  ::MoveWindow(number_.Handle(), kMargin, top, kNumberWidth, field, TRUE);
  ::MoveWindow(wheel_.Handle(), kMargin + kNumberWidth, top, kWheelWidth, field, TRUE);
}

void CWinSelector::OnSetFocus(HWND) {
  ::SetFocus(list_);
}

void CWinSelector::OnListChoice() {
  Activate(Chosen());
}

void CWinSelector::OnNumberTyped() {
  if (number_.IsShowing()) return;
  if (auto number = ReadWindowNumber(number_.Text(), Count())) Activate(*number);
}

// Enter and a double click: on to the window. A number that no window has is refused, and shows again that of
// the active window.
void CWinSelector::OnGoThere() {
  if (::GetFocus() == number_.Handle() && !ReadWindowNumber(number_.Text(), Count())) {
    ::MessageBeep(MB_ICONEXCLAMATION);
    number_.Show(Chosen());
    return;
  }
  Activate(Chosen());
  ::SetFocus(frame_->Handle());
}

LRESULT CWinSelector::OnNotify(WPARAM, LPARAM l) {
  if (int step = CThumbWheel::StepOf(l)) Activate(StepWindowNumber(Chosen(), step, Count()));
  return CThumbWheel::kStay;
}

int CWinSelector::Chosen() const {
  return static_cast<int>(::SendMessageW(list_, LB_GETCURSEL, 0, 0)) + 1;
}

int CWinSelector::NumberOf(HWND child) const {
  auto found = std::ranges::find(windows_, child);
  return found == windows_.end() ? 0 : static_cast<int>(found - windows_.begin()) + 1;
}

// Brings the row of a window up to date, and adds it at the end of the list.
void CWinSelector::ShowRow(int number) {
  auto place = static_cast<WPARAM>(number - 1);
  auto* child = dynamic_cast<CMDIChildWnd*>(FromHandle(windows_[place]));
  std::string title = child ? child->ListText() : std::string();
  std::wstring row = ToWide(std::to_string(number) + "  " + title);
  bool wasChosen = Chosen() == number;
  ::SendMessageW(list_, LB_DELETESTRING, place, 0);
  ::SendMessageW(list_, LB_INSERTSTRING, place, reinterpret_cast<LPARAM>(row.c_str()));
  if (wasChosen) ::SendMessageW(list_, LB_SETCURSEL, place, 0);
}

void CWinSelector::Choose(int number) {
  ::SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(number - 1), 0);
  number_.Show(number);
}

void CWinSelector::Activate(int number) {
  if (number < 1 || number > Count()) return;
  auto* child = dynamic_cast<CMDIChildWnd*>(FromHandle(windows_[static_cast<std::size_t>(number) - 1]));
  if (child) frame_->ActivateChild(*child);
}

void CWinSelector::Add(const CMDIChildWnd& child) {
  if (!Exists()) return;
  windows_.push_back(child.Handle());
  ShowRow(Count());
}

// The windows behind it move up by one.
void CWinSelector::Remove(const CMDIChildWnd& child) {
  int number = Exists() ? NumberOf(child.Handle()) : 0;
  if (number == 0) return;
  windows_.erase(windows_.begin() + number - 1);
  ::SendMessageW(list_, LB_DELETESTRING, static_cast<WPARAM>(number - 1), 0);
  for (int behind = number; behind <= Count(); ++behind) ShowRow(behind);
  number_.Show(Chosen());
}

void CWinSelector::Select(const CMDIChildWnd& child) {
  if (Exists()) Choose(NumberOf(child.Handle()));
}

void CWinSelector::Retitle(const CMDIChildWnd& child) {
  if (int number = Exists() ? NumberOf(child.Handle()) : 0) ShowRow(number);
}

void CWinSelector::SetUpdating(bool updating) {
  if (!Exists()) return;
  ::SendMessageW(list_, WM_SETREDRAW, updating, 0);
  if (updating) ::InvalidateRect(list_, nullptr, TRUE);
}

}  // namespace tarrow
