// Positions, lines and columns as distinct types, so that none is ever passed for another.
//
// A BytePos is a zero-based offset into a text, a LineNo a zero-based line number, a ColumnNo a zero-based
// count of character cells. The number within is signed 32 bits: it is the type of the edit-control messages,
// a text never exceeds kMaxTextSize bytes, and differences need no care. The types are unwrapped (`.value`)
// only where they meet an array, a message or a printed number.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>

namespace tarrow {

template <typename Tag>
struct Ordinal {
  std::int32_t value = 0;

  constexpr Ordinal() = default;
  constexpr explicit Ordinal(std::int64_t v) : value(static_cast<std::int32_t>(v)) {}

  friend constexpr auto operator<=>(Ordinal, Ordinal) = default;
  friend constexpr Ordinal operator+(Ordinal a, std::int64_t n) { return Ordinal(a.value + n); }
  friend constexpr Ordinal operator-(Ordinal a, std::int64_t n) { return Ordinal(a.value - n); }
  friend constexpr std::int32_t operator-(Ordinal a, Ordinal b) { return a.value - b.value; }
  constexpr Ordinal& operator+=(std::int64_t n) { return *this = *this + n; }
  constexpr Ordinal& operator-=(std::int64_t n) { return *this = *this - n; }
  constexpr Ordinal& operator++() { return *this += 1; }
  constexpr Ordinal& operator--() { return *this -= 1; }
};

using BytePos = Ordinal<struct BytePosTag>;
using LineNo = Ordinal<struct LineNoTag>;
using ColumnNo = Ordinal<struct ColumnNoTag>;

// The largest text, in bytes: one less than a signed 32-bit offset holds, for the NUL behind the end.
inline constexpr std::int32_t kMaxTextSize = std::numeric_limits<std::int32_t>::max() - 1;

// A half-open range [start, end) of a text; start <= end. As a selection, start == end is a caret.
struct TextRange {
  BytePos start;
  BytePos end;

  constexpr std::int32_t Length() const { return end - start; }
  constexpr bool Empty() const { return start == end; }
  friend constexpr bool operator==(const TextRange&, const TextRange&) = default;
};

}  // namespace tarrow
