#include "framework/dialog.h"

#include "framework/ctl3d.h"
#include "framework/message_loop.h"
#include "framework/unicode.h"

#include <charconv>
#include <limits>

namespace tarrow {

namespace detail {

std::string ControlText(HWND control) {
  std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(::GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return ToUtf8(text);
}

void SetControlText(HWND control, const std::string& text) {
  ::SetWindowTextW(control, ToWide(text).c_str());
}

int ControlNumber(HWND control) {
  std::string text = ControlText(control);
  text.erase(0, text.find_first_not_of(' '));
  int number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) return std::numeric_limits<int>::max();
  return number < 0 ? 0 : number;
}

}  // namespace detail

constinit const MessageMap CDialog::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, OnCommand<IDOK, &CDialog::OnOk>,
                     OnCommand<IDCANCEL, &CDialog::OnCancel>>();

int CDialog::DoModal(HWND owner) {
  modal_ = true;
  INT_PTR result = -1;
  CreateBound([&]() -> HWND {
    result = ::DialogBoxParamW(ModuleInstance(), MAKEINTRESOURCEW(template_), owner, DialogProc, 0);
    return nullptr;
  });
  return result <= 0 ? IDCANCEL : static_cast<int>(result);
}

bool CDialog::CreateModeless(HWND owner) {
  modal_ = false;
  HWND window = CreateBound([&] {
    return ::CreateDialogParamW(ModuleInstance(), MAKEINTRESOURCEW(template_), owner, DialogProc, 0);
  });
  if (!window) return false;
  MessageLoop::AddModeless(window);
  ::ShowWindow(window, SW_SHOW);
  return true;
}

void CDialog::Close(int result) {
  if (modal_)
    ::EndDialog(Handle(), result);
  else
    Destroy();
}

void CDialog::SetItemText(int id, std::string_view text) {
  detail::SetControlText(Item(id), std::string(text));
}

void CDialog::FocusItem(int id) {
  Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(id)), TRUE);
}

void CDialog::LoadFields() {
  for (const DialogField& field : Fields()) {
    if (field.limit) ::SendMessageW(Item(field.id), EM_LIMITTEXT, static_cast<WPARAM>(field.limit), 0);
    field.load(*this, Item(field.id));
  }
}

void CDialog::StoreFields() {
  for (const DialogField& field : Fields()) field.store(*this, Item(field.id));
}

void CDialog::OnOk() {
  StoreFields();
  Close(IDOK);
}

void CDialog::OnCancel() {
  Close(IDCANCEL);
}

// Windows calls its own dialog procedure when DialogProc says that a message is not handled.
LRESULT CDialog::DefaultProc(UINT, WPARAM, LPARAM) {
  return FALSE;
}

LRESULT CDialog::WindowProc(UINT message, WPARAM w, LPARAM l) {
  const Ctl3dBinding* ctl3d = Ctl3dBinding::Current();
  if (message == WM_INITDIALOG) {
    if (ctl3d) ctl3d->Adopt(Handle());
    LoadFields();
    return OnInitDialog();
  }
  LRESULT result = CWnd::WindowProc(message, w, l);
  bool colour = message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
  if (DefaultWasCalled())
    return ctl3d && colour ? reinterpret_cast<LRESULT>(ctl3d->ControlColor(message, w, l)) : FALSE;
  // These answers are returned as they are; every other goes through DWLP_MSGRESULT.
  bool direct = colour || message == WM_COMPAREITEM || message == WM_VKEYTOITEM || message == WM_CHARTOITEM ||
                message == WM_QUERYDRAGICON;
  if (direct) return result;
  // Setting it costs a call of the system, and a list may send a hundred thousand notifications in a row.
  if (Exists() && ::GetWindowLongPtrW(Handle(), DWLP_MSGRESULT) != result)
    ::SetWindowLongPtrW(Handle(), DWLP_MSGRESULT, result);
  return TRUE;
}

INT_PTR CALLBACK CDialog::DialogProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  CWnd* object = Bind(window);
  return object ? static_cast<CDialog*>(object)->Dispatch(message, w, l) : FALSE;
}

}  // namespace tarrow
