#include "edit/commands/goto_line.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarrow {

TEST(GotoLine, NumbersCountFromOneAndStayInTheText) {
  EXPECT_EQ(GotoLineTarget(0, 10), LineNo(0));
  EXPECT_EQ(GotoLineTarget(1, 10), LineNo(0));
  EXPECT_EQ(GotoLineTarget(10, 10), LineNo(9));
  EXPECT_EQ(GotoLineTarget(11, 10), LineNo(9));
  EXPECT_EQ(GotoLineTarget(5, 1), LineNo(0));
  EXPECT_EQ(GotoLineTarget(std::numeric_limits<std::uint64_t>::max(), 10), LineNo(9));
}

TEST(GotoLine, ScrollsOnlyFromTheBottomLine) {
  EXPECT_EQ(LinesToScroll(LineNo(29), LineNo(10), 20, 1000), 10);
  EXPECT_EQ(LinesToScroll(LineNo(28), LineNo(10), 20, 1000), 0);
  EXPECT_EQ(LinesToScroll(LineNo(10), LineNo(10), 20, 1000), 0);
}

TEST(GotoLine, NeverScrollsBeyondTheLastLine) {
  EXPECT_EQ(LinesToScroll(LineNo(29), LineNo(10), 20, 33), 3);
  EXPECT_EQ(LinesToScroll(LineNo(29), LineNo(10), 20, 30), 0);
}

}  // namespace tarrow
