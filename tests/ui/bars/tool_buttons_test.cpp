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
  std::vector<PlacedButton> all = PlaceButtons(true, 4, 24, 8);
  EXPECT_EQ(all.size(), 21u);
  EXPECT_EQ(all[0].left, 4);
  EXPECT_EQ(all[2].right, 4 + 3 * 24);
  EXPECT_EQ(all[3].left, 4 + 3 * 24 + 8);
  EXPECT_EQ(all.back().right, 4 + 21 * 24 + 5 * 8);
}

TEST(ToolButtons, ProjectButtonsComeAndGo) {
  std::vector<PlacedButton> few = PlaceButtons(false, 0, 24, 8);
  EXPECT_EQ(few.size(), 15u);
  EXPECT_EQ(few.back().button.command, kHelpContext);
}

}  // namespace
}  // namespace tarrow
