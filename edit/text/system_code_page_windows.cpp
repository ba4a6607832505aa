#include "edit/text/charset.h"

#include <windows.h>

namespace tarrow {
namespace {

// A system may have UTF-8 as its code page. Text that is no UTF-8 is then taken to be Western.
bool SystemIsUtf8() {
  return ::GetACP() == CP_UTF8;
}

char16_t Decode(const char* bytes, int length) {
  wchar_t wide[2]{};
  int n = ::MultiByteToWideChar(CP_ACP, 0, bytes, length, wide, 2);
  return n == 1 ? static_cast<char16_t>(wide[0]) : u'\0';
}

char16_t DecodePair(unsigned char lead, unsigned char trail) {
  const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
  return Decode(bytes, 2);
}

std::string EncodeSystem(char32_t code) {
  std::u16string wide;
  AppendUtf16(code, wide);
  char bytes[8];
  int n = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, reinterpret_cast<const wchar_t*>(wide.data()),
                                static_cast<int>(wide.size()), bytes, sizeof bytes, "?", nullptr);
  // A character of two units that the page lacks gives a default character for each.
  return std::string(bytes, wide.size() > 1 && n > 1 ? 1 : static_cast<std::size_t>(n));
}

CodePage MakeSystem() {
  if (SystemIsUtf8()) return WesternCodePage();
  CodePage page;
  bool hasPairs = false;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    auto c = static_cast<char>(byte);
    page.isLead[byte] = ::IsDBCSLeadByteEx(CP_ACP, static_cast<BYTE>(byte)) != 0;
    hasPairs |= page.isLead[byte];
    page.single[byte] = page.isLead[byte] ? static_cast<char16_t>(kReplacementCharacter) : Decode(&c, 1);
  }
  if (hasPairs) page.decodePair = DecodePair;
  page.encode = EncodeSystem;
  return page;
}

}  // namespace

const CodePage& SystemCodePage() {
  static const CodePage page = MakeSystem();
  return page;
}

}  // namespace tarrow
