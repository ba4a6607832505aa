#include "tools/file_manager/regional_text.h"

#include "framework/unicode.h"

#include <windows.h>

namespace tarrow {
namespace {

std::wstring ThousandsSeparator() {
  wchar_t separator[8] = L",";
  ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8);
  return separator;
}

}  // namespace

std::string CountText(std::uint64_t number) {
  std::string digits = std::to_string(number);
  if (digits.size() <= 3) return digits;
  static const std::string separator = ToUtf8(ThousandsSeparator());
  for (std::size_t at = digits.size() - 3;; at -= 3) {
    digits.insert(at, separator);
    if (at <= 3) return digits;
  }
}

std::string TimeText(std::uint64_t time) {
  FILETIME file{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
  SYSTEMTIME universal, local;
  if (!::FileTimeToSystemTime(&file, &universal) ||
      !::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
    return {};
  wchar_t date[64] = L"", clock[64] = L"";
  ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date, 64);
  ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &local, nullptr, clock, 64);
  return ToUtf8(std::wstring(date) + L" " + clock);
}

}  // namespace tarrow
