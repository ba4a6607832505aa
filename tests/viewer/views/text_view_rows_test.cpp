#include "viewer/views/text_view_rows.h"

#include "viewer/views/view_copy.h"

#include <gtest/gtest.h>

#include "base/exceptions.h"

#include <memory>
#include <optional>
#include <random>

namespace tarrow {
namespace {

class TextFileRows : public testing::Test {
 protected:
  void Open(std::string content, int tabWidth = 8) {
    bytes = std::move(content);
    ASSERT_EQ(file.Open(std::make_unique<StringSource>(bytes)), RecordFileOutcome::kOpened);
    rows.emplace(file, tabWidth);
  }
  std::u16string Row(int row) { return rows->Read(LineNo(row)).Text(); }
  CellSelection Select(int row, int column, int toRow, int toColumn) {
    return {{LineNo(row), ColumnNo(column)}, {LineNo(toRow), ColumnNo(toColumn)}};
  }

  std::string bytes;
  CLineFile file{8};
  std::optional<TextViewRows> rows;
};

TEST_F(TextFileRows, ShowsUtf8AsCharacters) {
  Open("na\xC3\xAFve\tx\n\xE6\xBC\xA2\xE5\xAD\x97\tx\ne\xCC\x81z\x01\n");
  EXPECT_EQ(Row(0), u"na\u00EFve   x") << "a tab stops where it is seen to";
  EXPECT_EQ(Row(1), u"\u6F22\u5B57    x");
  EXPECT_EQ(rows->Read(LineNo(1)).Columns(), 9);
  EXPECT_EQ(Row(2), u"e\u0301z\u00B7");
  EXPECT_EQ(Row(3), u"");
}

TEST_F(TextFileRows, ShowsOtherTextsInTheCodePageOfTheSystem) {
  Open("caf\xE9\n\x80\n");
  EXPECT_EQ(Row(0), u"caf\u00E9");
  EXPECT_FALSE(rows->TextCharset().IsUtf8());
}

TEST_F(TextFileRows, ShowsNoMoreThan255Columns) {
  std::string wide, accents;
  for (int i = 0; i < 300; ++i) wide += "\xE6\xBC\xA2", accents += "e\xCC\x81";
  Open(std::string(300, 'x') + "\n" + wide + "\n" + accents + "\n\t" + std::string(254, 'y') + "\nz");
  EXPECT_EQ(Row(0), std::u16string(255, u'x'));
  EXPECT_EQ(Row(1), std::u16string(127, u'\u6F22')) << "the half of one more is not shown";
  EXPECT_EQ(rows->Read(LineNo(2)).Columns(), 255);
  EXPECT_EQ(Row(3), std::u16string(8, u' ') + std::u16string(247, u'y'));
  EXPECT_EQ(Row(4), u"z");
  EXPECT_EQ(rows->Longest(), 255);
}

TEST_F(TextFileRows, ALineOfMarksIsCutBetweenCharacters) {
  std::string marks = "a";
  for (int i = 0; i < 3000; ++i) marks += "\xCC\x81";
  Open(marks + "\nb\n");
  for (char16_t unit : Row(0).substr(1)) ASSERT_EQ(unit, u'\u0301');
  EXPECT_EQ(Row(1), u"b");
}

// ASCII is what the record file itself makes of it.
TEST_F(TextFileRows, AsciiIsWhatReadTextSays) {
  std::mt19937 random(3);
  constexpr std::string_view kCharacters = "abc \t\t.\r\n";
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (std::size_t n = random() % 2000; n > 0; --n)
      text += random() % 40 ? kCharacters[random() % 7] : kCharacters[7 + random() % 2];
    int tabWidth = static_cast<int>(1 + random() % 9);
    Open(text, tabWidth);
    CLineFile naive(tabWidth);
    ASSERT_EQ(naive.Open(std::make_unique<StringSource>(bytes)), RecordFileOutcome::kOpened);
    for (std::int32_t row = 0; row < rows->Count(); ++row) {
      std::string line(256, '#');
      line.resize(naive.ReadText(line));
      ASSERT_EQ(Row(row), std::u16string(line.begin(), line.end()));
    }
  }
}

TEST_F(TextFileRows, SelectsCharactersAndCopiesWhatIsSeen) {
  Open("one\ttwo\r\n\xC3\xA9t\xC3\xA9\r\n\r\nend");
  CellSelection selection = Select(0, 6, 1, 2);
  EXPECT_EQ(rows->MarksOf(LineNo(0), selection)[0], (ColumnSpan{6, 12}));
  EXPECT_EQ(rows->MarksOf(LineNo(1), selection)[0], (ColumnSpan{0, 2}));
  EXPECT_EQ(rows->MarksOf(LineNo(2), selection)[0], ColumnSpan());
  EXPECT_EQ(SelectedText(*rows, selection, 1000), "  two\r\n\xC3\xA9t");
  EXPECT_EQ(SelectedText(*rows, Select(3, 0, 1, 3), 1000), "\r\n\r\n");
  EXPECT_EQ(SelectedText(*rows, Select(1, 1, 1, 1), 1000), "");
  EXPECT_THROW(SelectedText(*rows, Select(0, 0, 3, 3), 10), CMemoryException);
  EXPECT_EQ(rows->BytesOf(selection), (FileRange{3, 12}));
}

TEST_F(TextFileRows, MatchesGoToTheirCells) {
  Open("one\ttwo\r\n\xC3\xA9t\xC3\xA9\r\n\r\nend");
  EXPECT_EQ(rows->CellsOf({4, 7}), Select(0, 8, 0, 11));
  EXPECT_EQ(rows->CellsOf({9, 11}), Select(1, 0, 1, 1));
  EXPECT_EQ(rows->CellsOf({9, 10}), Select(1, 0, 1, 1)) << "half a character is shown as a whole one";
  EXPECT_EQ(rows->CellsOf({11, 16}), Select(1, 1, 2, 0)) << "over the line end";
  EXPECT_EQ(rows->CellsOf({18, 18}), Select(3, 0, 3, 0));
}

// Every byte between two characters goes to a cell and back.
TEST_F(TextFileRows, BytesAndCellsAreTwoNamesOfOnePlace) {
  Open("\tone\n\xE6\xBC\xA2\t\xE5\xAD\x97\xC3\xA9 e\xCC\x81!\nend");
  for (std::int32_t row = 0; row < rows->Count(); ++row) {
    int columns = rows->Read(LineNo(row)).Columns();
    for (int column = 0; column <= columns; ++column) {
      if (rows->Read(LineNo(row)).SnapBack(column) != column) continue;
      FileRange at = rows->BytesOf(Select(row, column, row, column));
      CellSelection back = rows->CellsOf(at);
      std::string_view rest = std::string_view(bytes).substr(at.start);
      ASSERT_TRUE(rest.starts_with('\t') || back == Select(row, column, row, column));
      ASSERT_EQ(rows->BytesOf(back), at);
    }
  }
}

// A file of which nothing is left from some time on.
class Emptied final : public ByteSource {
 public:
  explicit Emptied(const bool& isEmpty) : isEmpty_(isEmpty) {}
  std::size_t Read(std::span<char> into) override { return isEmpty_ ? 0 : text_.Read(into); }
  void Seek(std::uint64_t position) override { text_.Seek(position); }
  std::uint64_t Size() override { return isEmpty_ ? 0 : text_.Size(); }

 private:
  const bool& isEmpty_;
  StringSource text_{"one\ntwo\nthree\n"};
};

TEST_F(TextFileRows, AFileThatShrinksHasEmptyRows) {
  bool isEmpty = false;
  ASSERT_EQ(file.Open(std::make_unique<Emptied>(isEmpty)), RecordFileOutcome::kOpened);
  rows.emplace(file, 8);
  EXPECT_EQ(Row(2), u"three");
  isEmpty = true;
  file.Discard();
  EXPECT_EQ(Row(2), u"");
  EXPECT_EQ(rows->Count(), 3);
  EXPECT_EQ(rows->BytesOf(Select(2, 4, 2, 4)), (FileRange{8, 8}));
}

}  // namespace
}  // namespace tarrow
