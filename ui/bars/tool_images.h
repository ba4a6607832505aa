// The pictures of the tool bar's buttons, from the bitmap resources to the screen.
//
// They are drawn at a whole multiple or at half of the size that they have in the bitmap, never in between,
// so that they are sharp on every display. The coloured bitmap is used unless the user asks for high contrast
// or the display has few colours: then the monochrome one, in the colour of button text.
#pragma once

#include "framework/handle.h"

namespace tarrow {

class ToolImages {
 public:
  // Loads the pictures for a display of `dpi` dots per inch.
  explicit ToolImages(int dpi);

  // Width and height of a picture in pixels.
  int Size() const { return size_; }

  // Draws a picture; a button that cannot act now has it pale.
  void Draw(HDC dc, int image, int left, int top, bool enabled) const;

 private:
  int size_;
  MemoryDcHandle dc_;
  BitmapHandle bitmap_;  // the pictures side by side, with their transparency
};

}  // namespace tarrow
