#include "search/find/find_replace_dialog.h"

#include "framework/dialog_placement.h"
#include "framework/unicode.h"
#include "resources/resource.h"

#include <utility>

namespace tarrow {

namespace {

Box BoxOfRect(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}

Box BoxOf(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return BoxOfRect(rect);
}

// The screen that most of `box` lies on or near, without the task bar.
Box ScreenAround(const Box& box) {
  RECT rect{box.left, box.top, box.right, box.bottom};
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  ::GetMonitorInfoW(::MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor);
  return BoxOfRect(monitor.rcWork);
}

}  // namespace

constinit const MessageMap CTwFindReplaceDialog::kMessageMap =
    MessageMap::Make<&CFindReplaceDialog::kMessageMap, On<WM_DESTROY, &CTwFindReplaceDialog::OnDestroy>,
                     OnNotify<IDC_FIND_WHAT, EN_CHANGE, &CTwFindReplaceDialog::OnFindWhatChanged>>();

CTwFindReplaceDialog::CTwFindReplaceDialog(FindState& state, const RECT& frame, std::function<void()> closed)
    : state_(state), frame_(frame), closed_(std::move(closed)) {}

bool CTwFindReplaceDialog::Show(bool findOnly, HWND owner) {
  findOnly_ = findOnly;
  DWORD flags = FR_DOWN | FR_SHOWHELP;
  if (state_.matchCase) flags |= FR_MATCHCASE;
  if (state_.wholeWord) flags |= FR_WHOLEWORD;
  if (Open(findOnly, state_.pattern, state_.replacement, flags, owner, findOnly ? 0 : IDD_REPLACE))
    return true;
  if (!Exists()) delete this;
  return false;
}

void CTwFindReplaceDialog::OnInitDialog() {
  Box self = BoxOf(Handle());
  bool first = state_.dialogRight < 0;
  int right = first ? static_cast<int>(frame_.right) - ::GetSystemMetrics(SM_CXVSCROLL) : state_.dialogRight;
  int top = first ? static_cast<int>(frame_.top) : state_.dialogTop;
  KeepPlace(Handle());
  Box wanted = self.At(right - self.Width(), top);
  Place(MovedWithin(wanted, ScreenAround(wanted)));
  if (!findOnly_) ::CheckDlgButton(Handle(), IDC_SELECTION_ONLY, state_.selectionOnly);
}

bool CTwFindReplaceDialog::SelectionOnly() const {
  return !findOnly_ && ::IsDlgButtonChecked(Handle(), IDC_SELECTION_ONLY) == BST_CHECKED;
}

bool CTwFindReplaceDialog::TakeTextChanged() {
  return std::exchange(textChanged_, false);
}

std::string CTwFindReplaceDialog::Replacement() const {
  HWND field = ::GetDlgItem(Handle(), IDC_REPLACE_WITH);
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(field)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextW(field, text.data(), static_cast<int>(text.size()))));
  return ToUtf8(text);
}

void CTwFindReplaceDialog::MoveAside(const Box& match) {
  Box self = BoxOf(Handle());
  Place(MovedAside(self, match, ScreenAround(self)));
}

void CTwFindReplaceDialog::Place(const Box& box) {
  if (box == BoxOf(Handle())) return;
  ::SetWindowPos(Handle(), nullptr, box.left, box.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CTwFindReplaceDialog::RememberPlace() {
  RECT self{};
  if (!::GetWindowRect(Handle(), &self)) return;
  state_.dialogRight = static_cast<int>(self.right);
  state_.dialogTop = static_cast<int>(self.top);
}

void CTwFindReplaceDialog::OnFindWhatChanged() {
  textChanged_ = true;
  Default();
}

void CTwFindReplaceDialog::OnDestroy() {
  RememberPlace();
  if (closed_) std::exchange(closed_, nullptr)();
  Default();
}

}  // namespace tarrow
