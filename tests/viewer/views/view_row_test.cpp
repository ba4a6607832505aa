#include "viewer/views/view_row.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

constexpr char32_t kWide = U'\u6F22', kMark = U'\u0301', kPair = U'\U0001F600';

ViewRow Row(const std::u32string& text) {
  ViewRow row;
  for (char32_t code : text) row.Append(code, CellsOf(code));
  return row;
}

TEST(ViewRow, KnowsHowManyCellsACharacterTakes) {
  EXPECT_EQ(CellsOf(U'a'), 1);
  EXPECT_EQ(CellsOf(U'\u00E9'), 1);
  EXPECT_EQ(CellsOf(U'\uFF71'), 1);
  EXPECT_EQ(CellsOf(kWide), 2);
  EXPECT_EQ(CellsOf(kPair), 2);
  EXPECT_EQ(CellsOf(kMark), 0);
}

TEST(ViewRow, ACaretStandsBeforeCharactersOnly) {
  ViewRow row = Row({U'a', kWide, U'e', kMark, kPair, U'z'});  // columns 0, 1, 3, 4, 6; 7 behind
  constexpr int kBack[] = {0, 1, 1, 3, 4, 4, 6, 7, 7}, kForward[] = {0, 1, 3, 3, 4, 6, 6, 7, 7};
  for (int column = 0; column < 9; ++column) {
    EXPECT_EQ(row.SnapBack(column), kBack[column]) << column;
    EXPECT_EQ(row.SnapForward(column), kForward[column]) << column;
  }
  EXPECT_EQ(row.Columns(), 7);
  EXPECT_EQ(Row({}).SnapBack(3), 0);
}

TEST(ViewRow, AWordIsLettersOrOneOtherCharacter) {
  ViewRow row = Row({U'i', U'n', U't', U' ', U' ', U'a', U'_', U'1', kWide, U'\u00E9', U'(', U')'});
  EXPECT_EQ(row.WordAt(0), (ColumnSpan{0, 3}));
  EXPECT_EQ(row.WordAt(2), (ColumnSpan{0, 3}));
  EXPECT_EQ(row.WordAt(3), (ColumnSpan{3, 4}));
  EXPECT_EQ(row.WordAt(9), (ColumnSpan{5, 11})) << "within the wide character";
  EXPECT_EQ(row.WordAt(11), (ColumnSpan{11, 12}));
  EXPECT_TRUE(row.WordAt(13).Empty());
}

TEST(ViewRow, PiecesNeverCutACharacter) {
  ViewRow row = Row({U'a', kWide, U'e', kMark, kPair, U'z'});
  CellPiece piece = row.Piece({2, 5});
  EXPECT_EQ(piece.text, u"e\u0301");
  EXPECT_EQ(piece.column, 3);
  EXPECT_EQ(piece.columns, 1);
  EXPECT_EQ(std::vector<std::uint8_t>(piece.cells.begin(), piece.cells.end()),
            (std::vector<std::uint8_t>{1, 0}));
  EXPECT_EQ(row.Piece({0, 100}).text, row.Text());
  EXPECT_EQ(row.Piece({5, 100}).text, u"z");
  EXPECT_EQ(row.Piece({2, 3}).text, u"");
  EXPECT_EQ(row.Piece({50, 60}).text, u"");
  EXPECT_EQ(Row({kMark, U'a'}).Piece({0, 1}).text, u"\u0301a") << "a mark upon nothing is not lost";
}

}  // namespace
}  // namespace tarrow
