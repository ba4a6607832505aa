// Long inputs for engines whose windows are larger than any input that a fuzzer makes in a few seconds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

// `bytes` as they are, or, as `choice` says, again and again until they go beyond a window of `window` bytes,
// each time with a different byte somewhere.
inline std::string LongInput(std::string_view bytes, std::uint8_t choice, std::size_t window) {
  std::string text(bytes);
  if (choice % 4 != 3 || bytes.empty()) return text;
  std::size_t wanted = window - 200 + 8 * choice;
  for (std::size_t round = 1; text.size() < wanted; ++round) {
    text += bytes;
    if (round % 5 == 0) text[text.size() - 1 - round % bytes.size()] = static_cast<char>(choice + round);
  }
  return text;
}

}  // namespace tarrow
