// Lets the controls of a dialog follow when the user changes its size.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

namespace tarrow {

// What a control does as the dialog grows: moves with the right or lower edge, or grows with it.
struct DialogAnchor {
  int id;
  bool movesRight = false;
  bool movesDown = false;
  bool growsWide = false;
  bool growsHigh = false;
};

class DialogLayout {
 public:
  // Takes the size that the dialog has now as its least, and the places of these controls.
  void Begin(HWND dialog, std::span<const DialogAnchor> anchors);

  // For WM_SIZE: puts the controls where they belong in a client area of that size.
  void Arrange(int width, int height) const;

  // For WM_GETMINMAXINFO.
  void Limit(MINMAXINFO& limits) const;

 private:
  struct Item {
    DialogAnchor anchor;
    RECT place;
  };

  HWND dialog_ = nullptr;
  SIZE client_{}, least_{};
  std::vector<Item> items_;
};

}  // namespace tarrow
