#include "search/find/match_place.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(TopForMatch, LeavesAQuarterAboveAndBelow) {
  struct {
    const char* name;
    int top, lines, textLines, first, last, wanted;
  } const kRows[] = {
      {"in the middle nothing moves", 100, 20, 1000, 110, 110, 100},
      {"the last line of the middle half", 100, 20, 1000, 114, 114, 100},
      {"below it", 100, 20, 1000, 115, 115, 101},
      {"the first line of the middle half", 100, 20, 1000, 105, 105, 100},
      {"above it", 100, 20, 1000, 104, 104, 99},
      {"far away", 100, 20, 1000, 500, 500, 486},
      {"far above", 500, 20, 1000, 10, 10, 5},
      {"at the start of the text", 500, 20, 1000, 2, 2, 0},
      {"at its end", 0, 20, 1000, 999, 999, 980},
      {"at the end of a view beyond the end", 990, 20, 1000, 996, 996, 990},
      {"a text that fits", 0, 20, 10, 9, 9, 0},
      {"several lines", 100, 20, 1000, 300, 303, 289},
      {"more lines than the view has: their start", 100, 20, 1000, 300, 400, 295},
      {"a view of one line", 0, 1, 1000, 7, 7, 7},
      {"a view of none", 0, 0, 10, 7, 7, 7},
  };
  for (auto& row : kRows)
    EXPECT_EQ(TopForMatch({LineNo(row.top), row.lines, LineNo(row.textLines - 1)}, LineNo(row.first),
                          LineNo(row.last)),
              LineNo(row.wanted))
        << row.name;
}

constexpr Box kScreen{0, 0, 1000, 700};

TEST(MovedWithin, KeepsABoxOnTheScreen) {
  EXPECT_EQ(MovedWithin({100, 100, 300, 200}, kScreen), (Box{100, 100, 300, 200}));
  EXPECT_EQ(MovedWithin({-50, 650, 150, 750}, kScreen), (Box{0, 600, 200, 700}));
  EXPECT_EQ(MovedWithin({900, -10, 1100, 90}, kScreen), (Box{800, 0, 1000, 100}));
  EXPECT_EQ(MovedWithin({500, 500, 1700, 600}, kScreen), (Box{0, 500, 1200, 600}));
}

TEST(MovedAside, LeavesTheMatchFree) {
  Box dialog{400, 300, 600, 400};
  EXPECT_EQ(MovedAside(dialog, {100, 100, 200, 116}, kScreen), dialog);
  EXPECT_EQ(MovedAside(dialog, {450, 390, 500, 406}, kScreen), dialog.At(400, 290));
  EXPECT_EQ(MovedAside(dialog, {450, 296, 500, 312}, kScreen), dialog.At(400, 312));
  EXPECT_EQ(MovedAside(dialog, {590, 340, 900, 356}, kScreen), dialog.At(390, 300));
  EXPECT_EQ(MovedAside(dialog, {100, 340, 410, 356}, kScreen), dialog.At(410, 300));
  EXPECT_EQ(MovedAside({0, 0, 200, 100}, {0, 90, 50, 106}, kScreen), (Box{50, 0, 250, 100}));
  EXPECT_EQ(MovedAside(dialog, {0, 0, 1000, 700}, kScreen), dialog) << "there is no other place";
}

// Wherever they stand: as long as one of the four sides has room, the match is free, and nothing leaves the
// screen.
TEST(MovedAside, FindsAPlaceWhereThereIsOne) {
  for (int x = -100; x < 1100; x += 37)
    for (int y = -100; y < 800; y += 29)
      for (int at = 0; at < 980; at += 53) {
        Box match{at, at * 7 / 10, at + 20, at * 7 / 10 + 16};
        Box moved = MovedAside({x, y, x + 300, y + 150}, match, kScreen);
        ASSERT_EQ(MovedWithin(moved, kScreen), moved);
        ASSERT_FALSE(moved.Meets(match)) << x << " " << y << " " << at;
      }
}

}  // namespace
}  // namespace tarrow
