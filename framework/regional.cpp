#include "framework/regional.h"

#include "framework/unicode.h"

namespace tarrow {
namespace {

constexpr int kLongestText = 128;

std::string DateText(const SYSTEMTIME& time, DWORD form) {
  wchar_t text[kLongestText] = L"";
  ::GetDateFormatW(LOCALE_USER_DEFAULT, form, &time, nullptr, text, kLongestText);
  return ToUtf8(text);
}

}  // namespace

std::string ShortDate(const SYSTEMTIME& time) {
  return DateText(time, DATE_SHORTDATE);
}

std::string LongDate(const SYSTEMTIME& time) {
  return DateText(time, DATE_LONGDATE);
}

std::string TimeOfDay(const SYSTEMTIME& time) {
  wchar_t text[kLongestText] = L"";
  ::GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &time, nullptr, text, kLongestText);
  return ToUtf8(text);
}

bool UsesMetricSystem() {
  return ::GetProfileIntW(L"intl", L"iMeasure", 1) == 0;
}

std::string DecimalSeparator() {
  wchar_t text[8] = L"";
  ::GetProfileStringW(L"intl", L"sDecimal", L".", text, ARRAYSIZE(text));
  return *text ? ToUtf8(text) : ".";
}

}  // namespace tarrow
