#include "search/find/find_replace_dialog.h"

#include "framework/dialog_placement.h"
#include "resources/resource.h"

#include <utility>

namespace tarrow {

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
  RECT self{};
  ::GetWindowRect(Handle(), &self);
  int width = static_cast<int>(self.right - self.left);
  bool first = state_.dialogRight < 0;
  int right = first ? static_cast<int>(frame_.right) - ::GetSystemMetrics(SM_CXVSCROLL) : state_.dialogRight;
  int top = first ? static_cast<int>(frame_.top) : state_.dialogTop;
  KeepPlace(Handle());
  ::SetWindowPos(Handle(), nullptr, right - width, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  if (!findOnly_) ::CheckDlgButton(Handle(), IDC_SELECTION_ONLY, state_.selectionOnly);
}

bool CTwFindReplaceDialog::SelectionOnly() const {
  return !findOnly_ && ::IsDlgButtonChecked(Handle(), IDC_SELECTION_ONLY) == BST_CHECKED;
}

bool CTwFindReplaceDialog::TakeTextChanged() {
  return std::exchange(textChanged_, false);
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
