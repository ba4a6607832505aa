// A place that a line of a result window names: a file with a line and column, or with an address.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

struct SourcePlace {
  std::string name;            // of the file, in lower case; may be relative
  std::uint32_t position = 0;  // a line, one-based, or an address
  std::uint32_t column = 0;    // one-based; 0: none is named
  bool isAddress = false;
};

// The place that a line names before its first parenthesised number: "foo.c(12): ...", "foo.c (40,7)" or
// "foo.c(0x1A2B)". Nothing when it names none.
[[nodiscard]] std::optional<SourcePlace> ParseSourcePlace(std::string_view line);

// What reads the places out of a result window: it gets the lines by their numbers (zero-based, without line
// ends; empty beyond the last) and the number of the line in question.
using LineReader = std::function<std::string(std::int64_t line)>;
using PlaceFinder = std::function<std::optional<SourcePlace>(const LineReader& lines, std::int64_t line)>;

}  // namespace tarrow
