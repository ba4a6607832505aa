#include "ui/selector/window_number.h"

#include <charconv>

namespace tarrow {

std::string DigitsOf(std::string_view text) {
  std::string digits;
  for (char c : text)
    if (c >= '0' && c <= '9') digits += c;
  return digits;
}

std::optional<int> ReadWindowNumber(std::string_view text, int count) {
  int number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  bool isNumber = error == std::errc() && end == text.data() + text.size();
  if (!isNumber || number < 1 || number > count) return {};
  return number;
}

int StepWindowNumber(int number, int step, int count) {
  if (count == 0) return 0;
  int place = (number - 1 + step) % count;
  return (place < 0 ? place + count : place) + 1;
}

}  // namespace tarrow
