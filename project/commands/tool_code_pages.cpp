#include "project/commands/tool_code_pages.h"

#include "framework/unicode.h"

#include <windows.h>

namespace tarrow {
namespace {

char16_t NoPair(unsigned char, unsigned char) {
  return static_cast<char16_t>(kReplacementCharacter);
}

// A page of two bytes a character is the ANSI page of the same system; that there are pairs is all that is
// asked of it.
CodePage MakeOem() {
  CodePage page;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    auto c = static_cast<char>(byte);
    wchar_t wide[2]{};
    page.isLead[byte] = ::IsDBCSLeadByteEx(CP_OEMCP, static_cast<BYTE>(byte)) != 0;
    if (page.isLead[byte]) page.decodePair = NoPair;
    int count = ::MultiByteToWideChar(CP_OEMCP, 0, &c, 1, wide, 2);
    page.single[byte] = static_cast<char16_t>(count == 1 ? wide[0] : wchar_t{0xFFFD});
  }
  for (std::size_t byte = 0; byte < ' '; ++byte) page.single[byte] = static_cast<char16_t>(byte);
  return page;
}

}  // namespace

const CodePage& OemCodePage() {
  static const CodePage page = MakeOem();
  return page;
}

std::string EncodeForTools(std::string_view text) {
  std::wstring wide = ToWide(text);
  auto length = static_cast<int>(wide.size());
  BOOL isLossy = FALSE;
  int size = ::WideCharToMultiByte(CP_OEMCP, WC_NO_BEST_FIT_CHARS, wide.data(), length, nullptr, 0, nullptr,
                                   &isLossy);
  if (isLossy) {
    wide.insert(wide.begin(), wchar_t{0xFEFF});
    return {reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(wchar_t)};
  }
  std::string bytes(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_OEMCP, WC_NO_BEST_FIT_CHARS, wide.data(), length, bytes.data(), size, nullptr,
                        nullptr);
  return bytes;
}

}  // namespace tarrow
