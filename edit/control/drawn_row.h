// What a row of the window shows, against what it is to show: the key that changes a word needs no more drawn
// than that word where the rest of the line is there already, in its place or beside it.
#pragma once

#include "edit/control/line_layout.h"

#include <span>
#include <vector>

namespace tarrow {

// The row at `y` as it was drawn last, the view standing at `left`; no pieces: nothing is known of it.
struct DrawnRow {
  std::int64_t y = 0;
  Pixels left = 0;
  std::vector<LinePiece> pieces;
};

// How a row becomes another: the first pieces stay, the last are those of the row moved by so many pixels,
// and those between have to be drawn.
struct RowChange {
  std::size_t same = 0;
  std::size_t moved = 0;
  Pixels by = 0;
};

// Pieces that do not stand wholly between `left` and `right` are not there to be moved.
[[nodiscard]] RowChange CompareRows(std::span<const LinePiece> shown, std::span<const LinePiece> wanted,
                                    Pixels left, Pixels right);

}  // namespace tarrow
