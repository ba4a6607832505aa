// The mouse wheel: from its turns to steps of scrolling.
#pragma once

#include <windows.h>

namespace tarrow {

class Wheel {
 public:
  // How many whole steps a turn of `delta` makes, keeping the rest for the next message. Away from the user
  // and to the right is positive.
  int Steps(int delta, UINT perNotch) {
    rest_ += delta * static_cast<int>(perNotch);
    int steps = rest_ / WHEEL_DELTA;
    rest_ -= steps * WHEEL_DELTA;
    return steps;
  }

  // How many lines a notch is to scroll, a page being as many as said; and how many columns.
  static UINT Lines(int page) {
    UINT lines = Setting(SPI_GETWHEELSCROLLLINES);
    return lines == WHEEL_PAGESCROLL ? static_cast<UINT>(page) : lines;
  }
  static UINT Columns() { return Setting(SPI_GETWHEELSCROLLCHARS); }

 private:
  static UINT Setting(UINT which) {
    UINT perNotch = 3;
    ::SystemParametersInfoW(which, 0, &perNotch, 0);
    return perNotch;
  }

  int rest_ = 0;
};

}  // namespace tarrow
