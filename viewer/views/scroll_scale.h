// The vertical scroll bar of a view: a range of 0 to 1000 for any number of rows.
//
// A position says how far down the top row lies. Up to 40,000 rows it is the exact thousandth; beyond, that
// of whole thousands of rows, coarser but safe from overflow.
#pragma once

#include "base/units.h"

#include <algorithm>
#include <cstdint>

namespace tarrow {

inline constexpr int kScrollRange = 1000;
inline constexpr std::int32_t kMostExactRows = 40000;

// The position for `top` among `rows`.
constexpr int ScrollPosition(std::int32_t rows, LineNo top) {
  if (rows <= 0) return 0;
  std::int32_t position =
      rows <= kMostExactRows ? top.value * kScrollRange / rows : top.value / (rows / kScrollRange);
  return std::min(position, kScrollRange);
}

// The first row with this position, or with the next one that any row has. The end of the range is the end of
// the file.
constexpr LineNo RowAtPosition(std::int32_t rows, int position) {
  std::int64_t at = std::clamp(position, 0, kScrollRange);
  if (rows <= 0 || at == kScrollRange) return LineNo(std::max(rows - 1, 0));
  if (rows > kMostExactRows) return LineNo(at * (rows / kScrollRange));
  return LineNo(std::min<std::int64_t>((at * rows + kScrollRange - 1) / kScrollRange, rows - 1));
}

}  // namespace tarrow
