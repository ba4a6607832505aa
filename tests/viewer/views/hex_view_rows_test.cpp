#include "viewer/views/hex_view_rows.h"

#include "viewer/views/view_copy.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace tarrow {
namespace {

class HexView : public testing::Test {
 protected:
  void Open(std::string content) {
    bytes = std::move(content);
    ASSERT_EQ(file.Open(std::make_unique<StringSource>(bytes)), RecordFileOutcome::kOpened);
  }
  CellSelection Select(int row, int column, int toRow, int toColumn) {
    return {{LineNo(row), ColumnNo(column)}, {LineNo(toRow), ColumnNo(toColumn)}};
  }

  std::string bytes;
  CFixedRecordFile file{kHexRowBytes};
  HexViewRows rows{file};
};

TEST_F(HexView, ShowsRowsInTheCharactersOfTheSystem) {
  Open(std::string("\x00\x41\x7F\x80\xA9\xE9", 6) + std::string(26, 'z') + "!");
  EXPECT_EQ(rows.Count(), 3);
  EXPECT_EQ(rows.Longest(), 63);
  EXPECT_EQ(rows.Read(LineNo(0)).Text(),
            u"       0: 00417F80 A9E97A7A 7A7A7A7A 7A7A7A7A  .A\x7F.\u00A9\u00E9zzzzzzzzzz");
  EXPECT_EQ(rows.Read(LineNo(2)).Text(), u"      20: 21" + std::u16string(35, u' ') + u"!");
  EXPECT_EQ(rows.Read(LineNo(3)).Columns(), 0);
}

TEST_F(HexView, AnEmptyFileHasNoRows) {
  Open("");
  EXPECT_EQ(rows.Count(), 0);
  EXPECT_EQ(rows.Longest(), 0);
  EXPECT_EQ(rows.Read(LineNo(0)).Columns(), 0);
  EXPECT_EQ(rows.BytesOf(Select(0, 0, 0, 0)), FileRange());
}

TEST_F(HexView, MarksTheSameBytesInDigitsAndCharacters) {
  Open("0123456789abcdefghijklmnopqrstuvwxyz");
  // From within byte 14 to within byte 17.
  CellSelection selection = Select(0, 42, 1, 13);
  EXPECT_EQ(rows.BytesOf(selection), (FileRange{14, 18}));
  EXPECT_EQ(rows.MarksOf(LineNo(0), selection), (RowMarks{ColumnSpan{41, 45}, ColumnSpan{61, 63}}));
  EXPECT_EQ(rows.MarksOf(LineNo(1), selection), (RowMarks{ColumnSpan{10, 14}, ColumnSpan{47, 49}}));
  EXPECT_EQ(rows.MarksOf(LineNo(2), selection), RowMarks());
  EXPECT_EQ(SelectedText(rows, selection, 1000), "6566\r\n6768");
  EXPECT_EQ(SelectedText(rows, Select(1, 49, 0, 61), 1000), "ef\r\ngh") << "as it is seen where it was begun";
  EXPECT_EQ(SelectedText(rows, Select(0, 0, 1, 30), 1000).size(), 63 + 2 + 63);
  EXPECT_EQ(rows.BytesOf(Select(0, 5, 1, 0)), (FileRange{0, 16}));
  EXPECT_EQ(SelectedText(rows, Select(2, 10, 2, 60), 1000), "7778797A");
}

TEST_F(HexView, SelectsWhatWasFoundByItsBytes) {
  Open(std::string(1000, 'x'));
  CellSelection found = rows.CellsOf({21, 40});
  EXPECT_EQ(found, Select(1, 21, 2, 27));
  EXPECT_EQ(rows.BytesOf(found), (FileRange{21, 40}));
  EXPECT_EQ(rows.CellsOf({7, 7}), Select(0, 25, 0, 25));
  for (std::uint64_t start = 0; start < 40; ++start)
    for (std::uint64_t end = start; end < 60; ++end)
      ASSERT_EQ(rows.BytesOf(rows.CellsOf({start, end})), (FileRange{start, end}));
}

TEST_F(HexView, ADoubleClickSelectsAByteOrARow) {
  Open(std::string(20, 'x'));
  EXPECT_EQ(rows.WordAt({LineNo(0), ColumnNo(11)}), Select(0, 10, 0, 12));
  EXPECT_EQ(rows.WordAt({LineNo(0), ColumnNo(50)}), Select(0, 50, 0, 51));
  EXPECT_EQ(rows.WordAt({LineNo(1), ColumnNo(4)}), Select(1, 0, 1, 51));
  EXPECT_EQ(rows.BytesOf(rows.WordAt({LineNo(1), ColumnNo(40)})), (FileRange{19, 20})) << "behind the last";
}

TEST_F(HexView, AnAddressHasItsCell) {
  EXPECT_EQ(HexCellOf(0xFF), (CellPos{LineNo(15), ColumnNo(43)}));
  EXPECT_EQ(HexCellOf(0xFFFFFFFF), (CellPos{LineNo(0x0FFFFFFF), ColumnNo(43)}));
  EXPECT_EQ(HexCellOf(0x14), (CellPos{LineNo(1), ColumnNo(19)}));
}

// Cell by cell: a byte is selected when one of its cells, in the part where the selection began, lies in it.
TEST_F(HexView, SelectionsAreThoseOfANaiveLookAtEachCell) {
  Open("0123456789abcdefghijklmnopqrstuvwxyz0123456789");
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    auto cell = [&] { return CellPos{LineNo(random() % 3), ColumnNo(random() % 64)}; };
    CellSelection selection{cell(), cell()};
    if (selection.anchor.column < ColumnNo(10)) continue;
    bool inText = selection.anchor.column >= ColumnNo(47);
    FileRange naive{~0ull, 0};
    for (std::uint64_t byte = 0; byte < bytes.size(); ++byte) {
      CellPos first = HexCellOf(byte);
      if (inText) first.column = ColumnNo(static_cast<int>(47 + byte % 16));
      bool touched = false;
      for (int i = 0; i < (inText ? 1 : 2); ++i) {
        CellPos at{first.row, first.column + i};
        touched |= at >= selection.Start() && at < selection.End();
      }
      if (touched) naive = {std::min(naive.start, byte), byte + 1};
    }
    FileRange range = rows.BytesOf(selection);
    if (naive.end == 0)
      ASSERT_EQ(range.start, range.end);
    else
      ASSERT_EQ(range, naive);
  }
}

}  // namespace
}  // namespace tarrow
