#include "viewer/views/scroll_scale.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(ScrollScale, IsExactUpTo40000RowsAndSafeBeyond) {
  EXPECT_EQ(ScrollPosition(40000, LineNo(20000)), 500);
  EXPECT_EQ(ScrollPosition(40001, LineNo(20000)), 500);
  EXPECT_EQ(ScrollPosition(40000, LineNo(39)), 0);
  EXPECT_EQ(ScrollPosition(40000, LineNo(40)), 1);
  EXPECT_EQ(ScrollPosition(40999, LineNo(40999)), 1000) << "never above the range";
  EXPECT_EQ(ScrollPosition(1999, LineNo(1998)), 999);
  EXPECT_EQ(ScrollPosition(0, LineNo(0)), 0);
  EXPECT_EQ(ScrollPosition(0x7FFFFFFF, LineNo(0x7FFFFFFE)), 1000);
  EXPECT_EQ(ScrollPosition(0x10000000, LineNo(0x8000000)), 500);
}

TEST(ScrollScale, AThumbThatIsDraggedStaysWhereItIsPut) {
  for (std::int32_t rows : {1000, 1001, 1999, 25000, 40000, 40001, 41999, 0x10000000, 0x7FFFFFFF})
    for (int position = 0; position < kScrollRange; ++position)
      ASSERT_EQ(ScrollPosition(rows, RowAtPosition(rows, position)), position) << rows;
}

TEST(ScrollScale, ReachesEveryRowOfAShortFileAndTheEndOfAny) {
  for (std::int32_t rows : {1, 2, 7, 999}) {
    for (std::int32_t row = 0; row < rows; ++row)
      ASSERT_EQ(RowAtPosition(rows, ScrollPosition(rows, LineNo(row))).value, row) << rows;
  }
  for (std::int32_t rows : {1, 7, 40000, 40999, 0x7FFFFFFF})
    EXPECT_EQ(RowAtPosition(rows, kScrollRange).value, rows - 1);
  EXPECT_EQ(RowAtPosition(0, 700).value, 0);
  EXPECT_EQ(RowAtPosition(500, -3).value, 0);
}

}  // namespace
}  // namespace tarrow
