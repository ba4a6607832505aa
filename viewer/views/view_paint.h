// Painting a view: each whole row in view is drawn once, over all of its rectangle, and what is left of the
// window is filled; so nothing is erased before and nothing flickers.
#pragma once

#include "viewer/views/view_state.h"

#include <span>
#include <string_view>

namespace tarrow {

// Pixels; right and bottom do not belong to it.
struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;

  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Where a view draws: a window, or a record of what was drawn.
class ViewSurface {
 public:
  virtual ~ViewSurface() = default;

  // Fills `area` and draws `text` from its left edge on, no farther than the area; `advances` are the widths
  // of its units. Without a text it only fills.
  virtual void Draw(const PixelRect& area, std::u16string_view text, std::span<const int> advances,
                    bool isSelected) = 0;
};

struct CellSize {
  int width = 1, height = 1;
};

// Draws the rows of `client` that lie, if only in part, between the heights `from` and `to`. Throws
// CFileException, with the rows before drawn.
void PaintView(ViewSurface& surface, ViewRows& rows, const ViewState& state, CellSize cell,
               const PixelRect& client, int from, int to);

// Fills all of `client`.
void PaintEmpty(ViewSurface& surface, const PixelRect& client);

}  // namespace tarrow
