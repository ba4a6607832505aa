// Where a found match stands: in the middle half of the view, and not under the dialog that found it.
#pragma once

#include "base/units.h"

#include <algorithm>

namespace tarrow {

// A view of a text, in whole lines.
struct LineView {
  LineNo top;
  int lines = 0;  // that fit into it
  LineNo last;    // of the text
};

// The top line of the view that shows the lines first..last with a quarter of the view above and below them.
// As it is if they have that already; no farther than the text goes; `first` is shown in any case.
LineNo TopForMatch(const LineView& view, LineNo first, LineNo last);

// A rectangle of the screen, its right and bottom edges outside.
struct Box {
  int left = 0, top = 0, right = 0, bottom = 0;

  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  Box At(int x, int y) const { return {x, y, x + Width(), y + Height()}; }
  bool Meets(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  friend bool operator==(const Box&, const Box&) = default;
};

// `box` moved as little as possible to lie within `area`; its upper left corner does where it is too large.
Box MovedWithin(Box box, const Box& area);

// `box` moved as little as possible to leave `match` free, within `area`; where there is no such place it
// stays, within the area.
Box MovedAside(Box box, const Box& match, const Box& area);

}  // namespace tarrow
