// Where on a page may be printed: from what a printer says of its paper, and the margins, to a rectangle.
#pragma once

#include "print/margins.h"

namespace tarrow {

// What a printer says of its pages. Pixels are the printer's own; all are counted within the part of the page
// that it can print on, but for the strips around it.
struct PageMetrics {
  int width = 0;  // of the printable part
  int height = 0;
  int widthMm10 = 0;  // the same in tenths of a millimetre
  int heightMm10 = 0;
  int offsetX = 0;  // the strips that it cannot print on
  int offsetY = 0;
  int extraRight = 0;
  int extraBottom = 0;
};

// Printer pixels from the upper left corner of the printable part.
struct PageArea {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int Width() const { return right - left; }
  friend bool operator==(const PageArea&, const PageArea&) = default;
};

// The area within the margins, which are counted from the edges of the paper. A margin that would take more
// than a third of the page, or reaches beyond what can be printed on, is replaced by none at all.
[[nodiscard]] PageArea AreaWithin(const Margins& margins, const PageMetrics& page);

}  // namespace tarrow
