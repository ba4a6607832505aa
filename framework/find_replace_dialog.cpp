#include "framework/find_replace_dialog.h"

#include "framework/common_dialogs.h"
#include "framework/message_loop.h"
#include "framework/unicode.h"

namespace tarrow {

const UINT kFindReplaceMessage = ::RegisterWindowMessageW(FINDMSGSTRINGW);
const UINT kCommonDialogHelp = ::RegisterWindowMessageW(HELPMSGSTRINGW);

constinit const MessageMap CFindReplaceDialog::kMessageMap = MessageMap::Make<&CWnd::kMessageMap>();

bool CFindReplaceDialog::Open(bool findOnly, std::string_view findWhat, std::string_view replaceWith,
                              DWORD flags, HWND owner, WORD templateId) {
  findWhat_ = ToWide(findWhat);
  replaceWith_ = ToWide(replaceWith);
  findWhat_.resize(kBuffer);
  replaceWith_.resize(kBuffer);
  data_ = {};
  data_.lStructSize = sizeof data_;
  data_.hwndOwner = owner;
  data_.hInstance = ModuleInstance();
  data_.Flags = flags | FR_ENABLEHOOK | (templateId ? FR_ENABLETEMPLATE : 0);
  data_.lpstrFindWhat = findWhat_.data();
  data_.wFindWhatLen = kBuffer - 1;
  data_.lpstrReplaceWith = replaceWith_.data();
  data_.wReplaceWithLen = kBuffer - 1;
  data_.lCustData = reinterpret_cast<LPARAM>(this);
  data_.lpfnHook = Hook;
  data_.lpTemplateName = MAKEINTRESOURCEW(templateId);
  HWND dialog = findOnly ? kFindText(&data_) : kReplaceText(&data_);
  if (!dialog) return false;
  MessageLoop::AddModeless(dialog);
  return true;
}

CFindReplaceDialog* CFindReplaceDialog::FromNotification(LPARAM l) {
  auto data = reinterpret_cast<const FINDREPLACEW*>(l);
  return data ? reinterpret_cast<CFindReplaceDialog*>(data->lCustData) : nullptr;
}

std::string CFindReplaceDialog::FindWhat() const {
  return ToUtf8(data_.lpstrFindWhat);
}

std::string CFindReplaceDialog::ReplaceWith() const {
  return ToUtf8(data_.lpstrReplaceWith);
}

// A hook must say TRUE to WM_INITDIALOG, or the system leaves the dialog hidden.
UINT_PTR CALLBACK CFindReplaceDialog::Hook(HWND window, UINT message, WPARAM, LPARAM l) noexcept {
  if (message != WM_INITDIALOG) return FALSE;
  if (CFindReplaceDialog* dialog = FromNotification(l)) {
    dialog->Subclass(window);
    dialog->OnInitDialog();
  }
  return TRUE;
}

}  // namespace tarrow
