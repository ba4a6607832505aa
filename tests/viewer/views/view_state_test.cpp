#include "viewer/views/view_state.h"

#include "grid_rows.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

CellPos Cell(int row, int column) {
  return {LineNo(row), ColumnNo(column)};
}

GridRows Rows(std::size_t count) {
  return GridRows(std::vector<std::string>(count, std::string(50, 'x')));
}

constexpr ViewPage kPage{10, 20};

TEST(ViewState, ScrollsNoFurtherThanTheLastPage) {
  GridRows rows = Rows(100);
  EXPECT_EQ(ScrolledTo({}, 1000, kPage, rows).top.value, 90);
  EXPECT_EQ(ScrolledTo({}, -5, kPage, rows).top.value, 0);
  ViewState below;
  below.top = LineNo(95);  // the window has been made higher
  EXPECT_EQ(ScrolledTo(below, 96, kPage, rows).top.value, 95);
  EXPECT_EQ(ScrolledTo(below, 94, kPage, rows).top.value, 94);
  GridRows few = Rows(3), none = Rows(0);
  EXPECT_EQ(ScrolledTo({}, 1, kPage, few).top.value, 0);
  EXPECT_EQ(ScrolledTo({}, 1, kPage, none).top.value, 0);
  EXPECT_EQ(ScrolledSideways({}, 70, rows).left.value, 50);
  EXPECT_EQ(ScrolledSideways({}, -1, rows).left.value, 0);
}

TEST(ViewState, PutsTheCaretIntoTheText) {
  GridRows rows = Rows(100);
  ViewState state = WithCaretAt({}, Cell(400, 90), false, rows);
  EXPECT_EQ(state.selection, (CellSelection{Cell(99, 50), Cell(99, 50)}));
  state = WithCaretAt(state, Cell(-3, -1), true, rows);
  EXPECT_EQ(state.selection, (CellSelection{Cell(99, 50), Cell(0, 0)}));
  GridRows none = Rows(0);
  EXPECT_EQ(WithCaretAt({}, Cell(3, 3), false, none).Caret(), Cell(0, 0));
}

TEST(ViewState, ShowsWhatIsFarAwayInTheUpperHalf) {
  GridRows rows = Rows(1000);
  ViewState state = ShowingSelection({}, {Cell(500, 45), Cell(501, 3)}, kPage, rows);
  EXPECT_EQ(state.top.value, 497);
  EXPECT_EQ(state.left.value, 40) << "the start is in view";
  EXPECT_EQ(state.selection, (CellSelection{Cell(500, 45), Cell(501, 3)}));
  EXPECT_EQ(ShowingSelection(state, {Cell(505, 0), Cell(505, 0)}, kPage, rows).top.value, 497)
      << "what is in view stays";
  EXPECT_EQ(ShowingSelection({}, {Cell(999, 0), Cell(999, 0)}, kPage, rows).top.value, 990);
  state = ShowingSelection({}, {Cell(600, 0), Cell(700, 0)}, kPage, rows);
  EXPECT_EQ(state.top.value, 600) << "of a long selection the start";
}

TEST(ViewState, FollowsAFileThatShrinks) {
  GridRows rows = Rows(1000), less = Rows(20), none = Rows(0);
  ViewState state = ShowingSelection({}, {Cell(500, 45), Cell(501, 3)}, kPage, rows);
  state = WithinRows(state, kPage, less);
  EXPECT_EQ(state.selection, (CellSelection{Cell(19, 45), Cell(19, 3)}));
  EXPECT_EQ(state.top.value, 10);
  state = WithinRows(state, kPage, none);
  EXPECT_EQ(state.selection, CellSelection());
  EXPECT_EQ(state.top.value, 0);
  EXPECT_EQ(state.left.value, 0);
}

}  // namespace
}  // namespace tarrow
