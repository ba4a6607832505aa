#include "tests/e2e/clipboard.h"

#include <cstring>

#include "framework/unicode.h"

#include <windows.h>

namespace tarrow::probe {

std::string ClipboardText() {
  if (!OpenClipboard(nullptr)) return {};
  std::string result;
  if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
    if (const void* text = GlobalLock(block)) {
      result = ToUtf8(static_cast<const wchar_t*>(text));
      GlobalUnlock(block);
    }
  }
  CloseClipboard();
  return result;
}

bool SetClipboardText(const std::string& utf8) {
  const std::wstring text = ToWide(utf8);
  const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
  if (!block || !OpenClipboard(nullptr)) return false;
  std::memcpy(GlobalLock(block), text.c_str(), size);
  GlobalUnlock(block);
  EmptyClipboard();
  const bool isSet = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
  CloseClipboard();
  return isSet;
}

}  // namespace tarrow::probe
