// New names for many files at once: "*.c" to "*.bak".
//
// A name is matched with the wildcards of one pattern, and what each of them stood for is put where the
// wildcards of the other are, in order. "?" stands for one character, "*" for as many as possible; other
// characters stand for themselves, ASCII letters in either case. ".*" at the end also matches a name without
// a dot, as users of wildcards expect of "*.*".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// The new name of `name`, or nothing when `from` does not match it. Wildcards of `to` beyond those of `from`
// stand for nothing. Dots and blanks at the end, which no file system keeps, are dropped.
[[nodiscard]] std::optional<std::string> MapName(std::string_view name, std::string_view from,
                                                 std::string_view to);

// What to match a name with when only the new pattern was given: "*" where that has no dot, else "*.*".
[[nodiscard]] std::string_view PatternFor(std::string_view to);

[[nodiscard]] bool HasWildcard(std::string_view name);

// Whether `from` has a wildcard for each that `to` has.
[[nodiscard]] bool HasWildcardsFor(std::string_view from, std::string_view to);

// Whether a file can have this name: not empty, no wildcard, separator or control character, and no dot or
// blank at its end.
[[nodiscard]] bool IsFileName(std::string_view name);

}  // namespace tarrow
