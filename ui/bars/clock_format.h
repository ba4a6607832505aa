// The time of the status bar's clock as text, by the user's regional settings.
#pragma once

#include <string>

namespace tarrow {

struct ClockFormat {
  std::string separator = ":";
  bool twelveHours = true;
  std::string morning = "am";
  std::string afternoon = "pm";

  // "9:05 am", or "9:05" on a clock of 24 hours. Midnight and noon are 12 on a clock of twelve.
  [[nodiscard]] std::string Text(int hour, int minute) const;

  // The longest texts of the morning and the afternoon; the wider of them is the width of the clock.
  [[nodiscard]] std::string WidestMorning() const { return Compose(23, 59, morning); }
  [[nodiscard]] std::string WidestAfternoon() const { return Compose(23, 59, afternoon); }

 private:
  std::string Compose(int hour, int minute, const std::string& suffix) const;
};

}  // namespace tarrow
