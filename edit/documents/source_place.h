// A place that a line of a result window names: a file with a line and column, or with an address.
//
// Tools write places in two ways. The way of the compilers for this system, of a search and of a comparison
// is a number in parentheses behind the name: "foo.c(12)", "foo.c (40,7)", "foo.c(0x1A2B)". The way of the
// compilers that come from elsewhere is "foo.c:12:5". The text alone does not always tell which stretch of a
// line is meant, nor where a name with blanks begins; whoever can ask the disk finds that out.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

struct SourcePlace {
  std::string name;            // of the file, with ASCII letters in lower case; may be relative
  std::uint32_t position = 0;  // a line, one-based, or an address; the largest number when it is beyond that
  std::uint32_t column = 0;    // one-based; 0: none is named
  bool isAddress = false;
};

// Whether a name, as it stands in a line, is that of a file.
using NameExists = std::function<bool(const std::string& name)>;

// The place that a line names: the first stretch with a parenthesised number, else the first with numbers
// behind colons; nothing when it names none. With `exists`, the first stretch that names a file wins, and its
// name may hold blanks; where none does, the answer is the same as without.
[[nodiscard]] std::optional<SourcePlace> ParseSourcePlace(std::string_view line,
                                                          const NameExists& exists = {});

// What reads the places out of a result window: it gets the lines by their numbers (zero-based, without line
// ends; empty beyond the last) and the number of the line in question.
using LineReader = std::function<std::string(std::int64_t line)>;
using PlaceFinder = std::function<std::optional<SourcePlace>(const LineReader& lines, std::int64_t line)>;

}  // namespace tarrow
