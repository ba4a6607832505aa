// The buttons of the tool bar: which there are, and where they stand.
//
// Images are numbered in the order in which they lie in the bitmaps, which is not the order of the buttons.
#pragma once

#include "ui/commands/commands.h"

#include <span>
#include <vector>

namespace tarrow {

struct ToolButton {
  int image;  // -1: no button
  CommandId command;

  bool IsGap() const { return image < 0; }
};

inline constexpr int kToolImageCount = 21;

// All buttons from left to right, with gaps between the groups.
[[nodiscard]] std::span<const ToolButton> ToolButtons();

// Whether the button belongs to projects: shown while there are project features, usable while one is open.
[[nodiscard]] bool IsProjectButton(const ToolButton& button);

// Where a button stands, in pixels.
struct PlacedButton {
  ToolButton button;
  int left;
  int right;
  int row = 0;
};

// The sizes of a bar and its buttons, in pixels.
struct ToolBarMeasures {
  int width;     // of the bar
  int surround;  // left and right of the buttons
  int button;
  int gap;  // between groups
};

// The buttons side by side, groups apart. Where the bar is too narrow the groups close up, and where that
// does not suffice the buttons go on in another row; a row has one button at least.
[[nodiscard]] std::vector<PlacedButton> PlaceButtons(bool withProject, const ToolBarMeasures& measures);

}  // namespace tarrow
