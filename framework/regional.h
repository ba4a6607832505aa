// The user's regional settings: dates and times as he writes them, and the values of the system profile.
#pragma once

#include <windows.h>

#include <string>

namespace tarrow {

// Dates and times of the day as text (UTF-8), the time without seconds.
[[nodiscard]] std::string ShortDate(const SYSTEMTIME& time);
[[nodiscard]] std::string LongDate(const SYSTEMTIME& time);
[[nodiscard]] std::string TimeOfDay(const SYSTEMTIME& time);

// Values of section `intl` of the system profile.
[[nodiscard]] bool UsesMetricSystem();
[[nodiscard]] std::string DecimalSeparator();

}  // namespace tarrow
