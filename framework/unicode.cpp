#include "framework/unicode.h"

#include "base/byte_scan.h"
#include "base/exceptions.h"
#include "base/utf16.h"

#include <windows.h>

#include <limits>

namespace tarrow {
namespace {

constexpr UINT kGb18030 = 54936;

int CheckedLength(std::size_t length) {
  if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw CMemoryException();
  return static_cast<int>(length);
}

std::string FromCodePage(UINT codePage, std::string_view bytes) {
  if (bytes.empty()) return {};
  int from = CheckedLength(bytes.size());
  int to = MultiByteToWideChar(codePage, 0, bytes.data(), from, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(to), L'\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), from, wide.data(), to);
  return ToUtf8(wide);
}

std::string ToCodePage(UINT codePage, std::string_view utf8) {
  std::wstring wide = ToWide(utf8);
  if (wide.empty()) return {};
  // The two code pages that hold every character refuse the flag.
  DWORD flags = codePage == CP_UTF8 || codePage == kGb18030 ? 0 : WC_NO_BEST_FIT_CHARS;
  int from = CheckedLength(wide.size());
  int to = WideCharToMultiByte(codePage, flags, wide.data(), from, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(to), '\0');
  WideCharToMultiByte(codePage, flags, wide.data(), from, bytes.data(), to, nullptr, nullptr);
  return bytes;
}

std::wstring UpperCase(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::string LowerAscii(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
  return Utf8ToUtf16<wchar_t>(utf8);
}
std::string ToUtf8(std::wstring_view wide) {
  return Utf16ToUtf8<wchar_t>(wide);
}

std::string AnsiToUtf8(std::string_view ansi) {
  return FromCodePage(GetACP(), ansi);
}
std::string Utf8ToAnsi(std::string_view utf8) {
  return ToCodePage(GetACP(), utf8);
}
std::string OemToUtf8(std::string_view oem) {
  return FromCodePage(GetOEMCP(), oem);
}
std::string Utf8ToOem(std::string_view utf8) {
  return ToCodePage(GetOEMCP(), utf8);
}

// Most names are of ASCII, and a list of files may have a hundred thousand of them.
std::string LowerCase(std::string_view utf8) {
  if (FindHighByte(utf8) == utf8.size()) return LowerAscii(std::string(utf8));
  std::wstring text = ToWide(utf8);
  std::wstring lower = text;
  CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
  std::wstring upper = UpperCase(text), upperAgain = UpperCase(lower);
  for (std::size_t i = 0; i < text.size(); ++i)
    if (upper[i] != upperAgain[i]) lower[i] = text[i];
  return ToUtf8(lower);
}

}  // namespace tarrow
