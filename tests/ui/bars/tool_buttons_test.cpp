#include "ui/bars/tool_buttons.h"

#include <gtest/gtest.h>

#include <set>

namespace tarrow {
namespace {

TEST(ToolButtons, UseEveryImageOnce) {
  std::set<int> images;
  for (const ToolButton& button : ToolButtons()) {
    if (button.IsGap()) continue;
    EXPECT_TRUE(images.insert(button.image).second) << button.image;
    EXPECT_NE(CommandMenuText(button.command), "") << button.command;
  }
  EXPECT_EQ(images.size(), static_cast<std::size_t>(kToolImageCount));
  EXPECT_EQ(*images.rbegin(), kToolImageCount - 1);
}

TEST(ToolButtons, StandInGroups) {
  std::vector<PlacedButton> all = PlaceButtons(true, {2000, 4, 24, 8});
  EXPECT_EQ(all.size(), 21u);
  EXPECT_EQ(all[0].left, 4);
  EXPECT_EQ(all[2].right, 4 + 3 * 24);
  EXPECT_EQ(all[3].left, 4 + 3 * 24 + 8);
  EXPECT_EQ(all.back().right, 4 + 21 * 24 + 5 * 8);
  EXPECT_EQ(all.back().row, 0);
}

TEST(ToolButtons, ProjectButtonsComeAndGo) {
  std::vector<PlacedButton> few = PlaceButtons(false, {2000, 0, 24, 8});
  EXPECT_EQ(few.size(), 15u);
  EXPECT_EQ(few.back().button.command, kHelpContext);
}

// In a bar of any width every button lies within it, beside or below the one before.
TEST(ToolButtons, CloseUpAndThenWrapWhereTheBarIsNarrow) {
  constexpr int kAll = 2 * 4 + 21 * 24, kWithGaps = kAll + 5 * 8;
  for (int width = 0; width < 700; ++width) {
    std::vector<PlacedButton> all = PlaceButtons(true, {width, 4, 24, 8});
    ASSERT_EQ(all.size(), 21u);
    EXPECT_EQ(all[3].left > all[2].right, width >= kWithGaps) << width;
    EXPECT_EQ(all.back().row == 0, width >= kAll) << width;
    for (std::size_t i = 0; i < all.size(); ++i) {
      ASSERT_EQ(all[i].right - all[i].left, 24);
      ASSERT_GE(all[i].left, 4);
      ASSERT_TRUE(width < 4 + 24 + 4 || all[i].right <= width - 4) << width;
      bool isNext = i == 0 || (all[i].row == all[i - 1].row && all[i].left >= all[i - 1].right) ||
                    (all[i].row == all[i - 1].row + 1 && all[i].left == 4);
      ASSERT_TRUE(isNext) << width << " " << i;
    }
  }
}

}  // namespace
}  // namespace tarrow
