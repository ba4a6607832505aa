#include "ui/bars/tool_buttons.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr ToolButton kGap{-1, kNoCommand};

constexpr ToolButton kButtons[] = {
    {0, kFileNew},
    {1, kFileOpen},
    {2, kFileSave},
    kGap,
    {3, kFileManage},
    {4, kFilePrint},
    kGap,
    {5, kEditCut},
    {6, kEditCopy},
    {7, kEditPaste},
    kGap,
    {8, kEditShiftLeft},
    {9, kEditShiftRight},
    {10, kEditUndo},
    kGap,
    {11, kSearchFind},
    {12, kSearchReplace},
    {13, kSearchGrep},
    kGap,
    {20, kHelpContext},
    {14, kProjectBuild},
    {15, kProjectBuildTarget},
    {16, kProjectCompile},
    {17, kProjectLink},
    {18, kProjectTest},
    {19, kProjectDebug},
};

std::vector<PlacedButton> PlaceInOneRow(bool withProject, int left, int width, int gap) {
  std::vector<PlacedButton> placed;
  for (const ToolButton& button : kButtons) {
    if (IsProjectButton(button) && !withProject) continue;
    if (button.IsGap()) {
      left += gap;
    } else {
      placed.push_back({button, left, left + width});
      left += width;
    }
  }
  return placed;
}

}  // namespace

std::span<const ToolButton> ToolButtons() {
  return kButtons;
}

bool IsProjectButton(const ToolButton& button) {
  return button.command >= kProjectSelect && button.command <= kProjectViewLog;
}

std::vector<PlacedButton> PlaceButtons(bool withProject, const ToolBarMeasures& measures) {
  std::vector<PlacedButton> placed =
      PlaceInOneRow(withProject, measures.surround, measures.button, measures.gap);
  int right = measures.width - measures.surround;
  if (placed.back().right <= right) return placed;
  placed = PlaceInOneRow(withProject, measures.surround, measures.button, 0);
  int perRow = std::max(1, (right - measures.surround) / measures.button);
  for (int i = 0; i < static_cast<int>(placed.size()); ++i) {
    PlacedButton& place = placed[static_cast<std::size_t>(i)];
    place.row = i / perRow;
    place.left = measures.surround + i % perRow * measures.button;
    place.right = place.left + measures.button;
  }
  return placed;
}

}  // namespace tarrow
