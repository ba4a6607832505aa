#include "viewer/views/view_moves.h"

#include "grid_rows.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

// Row r has r % 7 * 5 characters: 0, 5, ... 30.
GridRows Rows(int count) {
  std::vector<std::string> rows;
  for (int r = 0; r < count; ++r) rows.emplace_back(static_cast<std::size_t>(r % 7 * 5), 'x');
  return GridRows(rows);
}

CellPos Cell(int row, int column) {
  return {LineNo(row), ColumnNo(column)};
}

ViewState At(int row, int column, int top, int left = 0) {
  return {LineNo(top), ColumnNo(left), {Cell(row, column), Cell(row, column)}, ColumnNo(column)};
}

constexpr ViewPage kPage{10, 8};

struct MoveCase {
  const char* what;
  ViewState before;
  ViewKey key;
  ViewState after;
};

TEST(ViewMoves, EachKeyDoesWhatItsTableSays) {
  const MoveCase kCases[] = {
      {"page up", At(50, 5, 45), {ViewMove::kPageUp}, At(41, 5, 36)},
      {"page up at the top", At(5, 0, 3), {ViewMove::kPageUp}, At(0, 0, 0)},
      {"page down", At(50, 5, 45), {ViewMove::kPageDown}, At(59, 5, 54)},
      {"page down at the bottom", At(95, 5, 90), {ViewMove::kPageDown}, At(99, 5, 90)},
      {"top of window", At(50, 5, 45), {ViewMove::kTopOfWindow}, At(45, 5, 45)},
      {"bottom of window", At(50, 5, 45), {ViewMove::kBottomOfWindow}, At(54, 5, 45)},
      {"start of row", At(6, 12, 0, 8), {ViewMove::kRowStart}, At(6, 0, 0)},
      {"end of row", At(6, 12, 0, 8), {ViewMove::kRowEnd}, At(6, 30, 0, 24)},
      {"start of file", At(50, 5, 45), {ViewMove::kFileStart}, At(0, 0, 0)},
      {"end of file", At(50, 5, 45), {ViewMove::kFileEnd}, At(99, 5, 90)},
      {"up", At(50, 5, 45), {ViewMove::kUp}, At(49, 0, 45)},
      {"up from the first row in view", At(50, 5, 50), {ViewMove::kUp}, At(49, 0, 49)},
      {"down", At(50, 5, 45), {ViewMove::kDown}, At(51, 5, 45)},
      {"down from the last row in view", At(54, 5, 45), {ViewMove::kDown}, At(55, 5, 46)},
      {"scroll up", At(50, 5, 45), {ViewMove::kScrollUp}, At(50, 5, 44)},
      {"scroll down", At(50, 5, 45), {ViewMove::kScrollDown}, At(50, 5, 46)},
      {"scroll down at the end", At(99, 5, 90), {ViewMove::kScrollDown}, At(99, 5, 90)},
      {"left", At(6, 12, 0, 8), {ViewMove::kLeft, 1}, At(6, 11, 0, 8)},
      {"left over the edge", At(6, 8, 0, 8), {ViewMove::kLeft, 1}, At(6, 7, 0, 0)},
      {"left 15", At(6, 12, 0, 8), {ViewMove::kLeft, 15}, At(6, 0, 0, 0)},
      {"right", At(6, 12, 0, 8), {ViewMove::kRight, 1}, At(6, 13, 0, 8)},
      {"right over the edge", At(6, 15, 0, 8), {ViewMove::kRight, 1}, At(6, 16, 0, 16)},
      {"right 15", At(6, 5, 0), {ViewMove::kRight, 15}, At(6, 20, 0, 16)},
      {"right at the end of a row", At(6, 30, 0, 24), {ViewMove::kRight, 1}, At(6, 30, 0, 24)},
  };
  GridRows rows = Rows(100);
  for (const MoveCase& c : kCases) {
    ViewState after = Moved(c.before, c.key, false, kPage, rows);
    EXPECT_EQ(after.selection, c.after.selection) << c.what;
    EXPECT_EQ(after.top, c.after.top) << c.what;
    EXPECT_EQ(after.left, c.after.left) << c.what;
  }
}

TEST(ViewMoves, KeepsItsColumnInPassingShorterRows) {
  GridRows rows = Rows(100);
  ViewState state = At(6, 7, 0);
  state = Moved(state, {ViewMove::kDown}, false, kPage, rows);
  EXPECT_EQ(state.Caret(), Cell(7, 0));
  state = Moved(state, {ViewMove::kDown}, false, kPage, rows);
  EXPECT_EQ(state.Caret(), Cell(8, 5));
  state = Moved(state, {ViewMove::kDown}, false, kPage, rows);
  EXPECT_EQ(state.Caret(), Cell(9, 7));
}

TEST(ViewMoves, ShiftExtendsFromWhereItBegan) {
  GridRows rows = Rows(100);
  ViewState state = Moved(At(6, 7, 0), {ViewMove::kRight, 1}, true, kPage, rows);
  state = Moved(state, {ViewMove::kPageDown}, true, kPage, rows);
  EXPECT_EQ(state.selection, (CellSelection{Cell(6, 7), Cell(15, 5)}));
  EXPECT_EQ(Moved(state, {ViewMove::kScrollDown}, false, kPage, rows).selection, state.selection);
  state = Moved(state, {ViewMove::kLeft, 1}, false, kPage, rows);
  EXPECT_EQ(state.selection, (CellSelection{Cell(15, 4), Cell(15, 4)}));
}

// All that every move owes, checked by looking at all rows in view.
void CheckView(const ViewState& state, ViewPage page, GridRows& rows, bool scrolls) {
  CellPos caret = state.Caret();
  ASSERT_TRUE(caret.row >= LineNo(0) && caret.row.value < std::max(rows.Count(), 1));
  ASSERT_LE(caret.column.value, rows.Read(caret.row).Columns());
  ASSERT_TRUE(state.top >= LineNo(0) && state.top <= LastTop(rows.Count(), page)) << state.top.value;
  ASSERT_TRUE(state.left.value % page.columns == 0) << "whole pages sideways";
  ASSERT_TRUE(scrolls || IsCaretInView(state, page));
}

// The scrolling that a move of the caret needs is the least of all that show it.
TEST(ViewMoves, AnyKeysInAnyWindowKeepTheCaretInTextAndView) {
  std::mt19937 random(6);
  for (int round = 0; round < 300; ++round) {
    GridRows rows = Rows(static_cast<int>(random() % 40));
    ViewPage page{static_cast<std::int32_t>(1 + random() % 12), static_cast<std::int32_t>(1 + random() % 40)};
    ViewState state;
    for (int step = 0; step < 60; ++step) {
      auto move = static_cast<ViewMove>(static_cast<unsigned>(kFirstViewMove) + random() % 14);
      bool scrolls = move == ViewMove::kScrollUp || move == ViewMove::kScrollDown;
      int top = state.top.value;
      bool wasInView = IsCaretInView(state, page);
      state = Moved(state, {move, random() % 2 ? 1 : 15}, random() % 2 != 0, page, rows);
      CheckView(state, page, rows, scrolls);
      if (testing::Test::HasFatalFailure()) return;
      bool isPage = move == ViewMove::kPageUp || move == ViewMove::kPageDown;
      if (scrolls || isPage || !wasInView || state.top.value == top) continue;
      int row = state.Caret().row.value;
      ASSERT_TRUE(row == state.top.value || row == state.top.value + page.rows - 1) << "scrolled too far";
    }
  }
}

TEST(ViewMoves, KeysAreFoundByTheirCodes) {
  EXPECT_EQ(FindViewKey(0x25, false), (ViewKey{ViewMove::kLeft, 1}));
  EXPECT_EQ(FindViewKey(0x25, true), (ViewKey{ViewMove::kLeft, 15}));
  EXPECT_EQ(FindViewKey(0x21, false)->move, ViewMove::kPageUp);
  EXPECT_EQ(FindViewKey(0x22, true)->move, ViewMove::kBottomOfWindow);
  EXPECT_EQ(FindViewKey(0x24, true)->move, ViewMove::kFileStart);
  EXPECT_EQ(FindViewKey(0x28, true)->move, ViewMove::kScrollDown);
  EXPECT_EQ(static_cast<unsigned>(ViewMove::kRight), 2039u);
  for (unsigned key = 0; key < 256; ++key)
    EXPECT_EQ(FindViewKey(key, true).has_value(), key >= 0x21 && key <= 0x28);
}

}  // namespace
}  // namespace tarrow
