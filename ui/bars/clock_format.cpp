#include "ui/bars/clock_format.h"

#include "base/text_format.h"

namespace tarrow {

std::string ClockFormat::Text(int hour, int minute) const {
  const std::string& suffix = hour < 12 ? morning : afternoon;
  if (twelveHours && (hour %= 12) == 0) hour = 12;
  return Compose(hour, minute, suffix);
}

std::string ClockFormat::Compose(int hour, int minute, const std::string& suffix) const {
  std::string text = FormatText("%d%s%02d", {hour, separator, minute});
  if (twelveHours) text += FormatText(" %s", {suffix});
  return text;
}

}  // namespace tarrow
