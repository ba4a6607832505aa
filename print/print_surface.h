// PrintSurface: where pages are drawn, a printer in the program and a record of the texts in tests.
//
// Pixels are those of the surface, counted from the upper left corner of what can be printed on.
#pragma once

#include "edit/control/line_layout.h"

#include <span>
#include <string_view>

namespace tarrow {

class PrintSurface {
 public:
  // How wide characters are drawn.
  virtual const CharWidths& Widths() const = 0;

  // Starts page `number`, and ends it. Whatever they throw ends the printing.
  virtual void BeginPage(int number) = 0;
  virtual void EndPage() = 0;

  // Draws `text` with its upper left corner at (x, y), each unit as wide as its advance.
  virtual void Draw(int x, int y, std::u16string_view text, std::span<const int> advances) = 0;

 protected:
  ~PrintSurface() = default;
};

}  // namespace tarrow
