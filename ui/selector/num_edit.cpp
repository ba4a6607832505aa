#include "ui/selector/num_edit.h"

#include "framework/unicode.h"
#include "ui/selector/window_number.h"

namespace tarrow {
namespace {

// The text on the clipboard; empty when there is none.
std::string ClipboardText(HWND owner) {
  std::string text;
  if (!::OpenClipboard(owner)) return text;
  if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT))
    if (auto* wide = static_cast<const wchar_t*>(::GlobalLock(data))) {
      text = ToUtf8(std::wstring_view(wide, ::wcsnlen(wide, ::GlobalSize(data) / sizeof(wchar_t))));
      ::GlobalUnlock(data);
    }
  ::CloseClipboard();
  return text;
}

}  // namespace

constinit const MessageMap CNumEdit::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_CHAR, &CNumEdit::OnChar>, On<WM_KEYDOWN, &CNumEdit::OnKeyDown>,
                     On<WM_MOUSEWHEEL, &CNumEdit::OnMouseWheel>, On<WM_PASTE, &CNumEdit::OnPaste>>();

bool CNumEdit::CreateField(HWND parent, UINT id) {
  HWND field = ::CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", nullptr,
                                 WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, 0, 0, 0, 0, parent,
                                 reinterpret_cast<HMENU>(UINT_PTR{id}), ModuleInstance(), nullptr);
  if (!field) return false;
  ::SendMessageW(field, EM_LIMITTEXT, kMostDigits, 0);
  Subclass(field);
  return true;
}

void CNumEdit::Show(int number) {
  std::string text = number > 0 ? std::to_string(number) : std::string();
  if (text == Text()) return;
  showing_ = true;
  SetText(text);
  showing_ = false;
  if (::GetFocus() == Handle()) Send(EM_SETSEL, 0, -1);
}

// Control characters are the field's own: Backspace, Ctrl+C, Ctrl+V ...
void CNumEdit::OnChar(UINT character, LPARAM) {
  if (character < ' ' || (character >= '0' && character <= '9'))
    Default();
  else
    ::MessageBeep(MB_OK);
}

void CNumEdit::OnKeyDown(UINT key, LPARAM) {
  if (key == VK_UP || key == VK_DOWN)
    onStep(key == VK_UP ? -1 : 1);
  else
    Default();
}

void CNumEdit::OnMouseWheel(int delta, UINT, POINT) {
  onStep(delta > 0 ? -1 : 1);
}

LRESULT CNumEdit::OnPaste(WPARAM, LPARAM) {
  std::wstring digits = ToWide(DigitsOf(ClipboardText(Handle())));
  if (digits.empty())
    ::MessageBeep(MB_OK);
  else
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(digits.c_str()));
  return 0;
}

}  // namespace tarrow
