#include "print/row_breaker.h"

#include "tests/print/recording_surface.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace tarrow {
namespace {

constexpr int kCell = CellWidths::kCell;
constexpr int kTab = 4;  // columns

// The rows of lines, each as what one would read; "|" stands before the first row of a page.
std::vector<std::string> Rows(const std::vector<std::string>& lines, int columns) {
  CellWidths widths;
  Charset utf8;
  RowBreaker breaker(widths, columns * kCell, kTab * kCell);
  std::vector<std::string> rows;
  for (const std::string& line : lines) {
    // The second half behind the gap of a buffer.
    std::string_view whole(line);
    breaker.BeginLine({whole.substr(0, whole.size() / 2), whole.substr(whole.size() / 2)}, utf8);
    while (breaker.NextRow()) {
      std::u16string row;
      for (const PrintedPiece& piece : breaker.Pieces()) {
        EXPECT_EQ(piece.text.size(), piece.advances.size());
        row.resize(std::max(row.size(), static_cast<std::size_t>(piece.x / kCell)), u' ');
        row += piece.text;
      }
      EXPECT_EQ(breaker.IsBlank(), row.find_first_not_of(u' ') == row.npos);
      rows.push_back((breaker.StartsPage() ? "|" : "") + Utf16ToUtf8(std::u16string_view(row)));
    }
  }
  return rows;
}

TEST(RowBreaker, BreaksLines) {
  struct Case {
    std::vector<std::string> lines, rows;
  };
  const Case kCases[] = {
      {{""}, {""}},
      {{"abc", "", "d"}, {"abc", "", "d"}},
      {{"abcdef"}, {"abcdef"}},
      {{"abcdefg"}, {"abcdef", "g"}},
      {{"abcdefabcdef"}, {"abcdef", "abcdef"}},
      {{"a\tb"}, {"a   b"}},
      {{"abcd\tb"}, {"abcd", "  b"}},
      // Two of the blanks of the second tab begin the second row.
      {{"\t\tb"}, {"", "  b"}},
      {{"abcdefg\th"}, {"abcdef", "g h"}},
      {{"abcde\t"}, {"abcde"}},
      {{"\x01\x7F"}, {"\xC2\xB7\xC2\xB7"}},
      {{"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"},
       {"\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", "\xC3\xA9"}},
      {{"abcde\xE6\x97\xA5z"}, {"abcde", "\xE6\x97\xA5z"}},
      // A mark stays with its character, also where the row is full.
      {{"abcdefe\xCC\x81"}, {"abcdef", "e\xCC\x81"}},
      {{"abcdee\xCC\x81g"}, {"abcdee\xCC\x81", "g"}},
      {{"\xFF"
        "b"},
       {"\xEF\xBF\xBD"
        "b"}},
  };
  for (const Case& c : kCases) EXPECT_EQ(Rows(c.lines, 6), c.rows) << c.lines[0];
}

TEST(RowBreaker, AFormFeedStartsAPage) {
  struct Case {
    std::vector<std::string> lines, rows;
  };
  const Case kCases[] = {
      {{"a\fb"}, {"a", "|b"}},
      {{"a", "\f", "b"}, {"a", "|b"}},
      {{"a", "\fb"}, {"a", "|b"}},
      {{"a\f", "b"}, {"a", "|b"}},
      {{"a\f", "", "b"}, {"a", "|", "b"}},
      {{"a\f\f\fb"}, {"a", "|b"}},
      {{"a\f"}, {"a"}},
      {{"\f"}, {}},
      {{"abcdef\fg"}, {"abcdef", "|g"}},
      // Columns are counted anew on the new page.
      {{"abc\f\tx"}, {"abc", "|    x"}},
  };
  for (const Case& c : kCases) EXPECT_EQ(Rows(c.lines, 6), c.rows) << c.lines[0];
}

TEST(RowBreaker, ARowHoldsACharacterHoweverNarrowItIs) {
  EXPECT_EQ(Rows({"\xE6\x97\xA5\xE6\x97\xA5"}, 1),
            (std::vector<std::string>{"\xE6\x97\xA5", "\xE6\x97\xA5"}));
  EXPECT_EQ(Rows({"a\tb"}, 1), (std::vector<std::string>{"a", "", "b"}));
}

TEST(RowBreaker, CharactersFromRightToLeftAreDrawnOneByOne) {
  CellWidths widths;
  Charset utf8;
  RowBreaker breaker(widths, 100 * kCell, kTab * kCell);
  // a, aleph, bet with a mark, b, c
  breaker.BeginLine(std::string_view("a\xD7\x90\xD7\x91\xD6\xB4"
                                     "bc"),
                    utf8);
  ASSERT_TRUE(breaker.NextRow());
  std::vector<std::u16string> texts;
  std::vector<int> places;
  for (const PrintedPiece& piece : breaker.Pieces()) {
    texts.emplace_back(piece.text);
    places.push_back(piece.x / kCell);
  }
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"a", u"\u05D0", u"\u05D1\u05B4", u"bc"}));
  EXPECT_EQ(places, (std::vector<int>{0, 1, 2, 3}));
}

// A mark that is made to be drawn in the place of its letter has the letter's width.
TEST(RowBreaker, MarksAreDrawnOverTheirLetters) {
  CellWidths widths;
  Charset utf8;
  RowBreaker breaker(widths, 100 * kCell, kTab * kCell);
  breaker.BeginLine(std::string_view("a\te\xCC\x81o"), utf8);
  ASSERT_TRUE(breaker.NextRow());
  auto pieces = breaker.Pieces();
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(std::vector<int>(pieces[0].advances.begin(), pieces[0].advances.end()), std::vector<int>{kCell});
  EXPECT_EQ(std::vector<int>(pieces[1].advances.begin(), pieces[1].advances.end()),
            (std::vector<int>{0, kCell, kCell}));
}

// Marks without end take no room, and still a row comes to its end.
TEST(RowBreaker, ARowOfMarksEnds) {
  std::string marks;
  for (int i = 0; i < 10000; ++i) marks += "\xCC\x81";
  EXPECT_EQ(Rows({marks}, 6).size(), 3u);
}

// Whatever the bytes, every character is drawn once, in order, and no row is wider than it may be.
TEST(RowBreaker, LosesNothing) {
  std::mt19937 random(9);
  const std::vector<std::string> kParts = {"a",        "bc",           " ",        "\t",   "\f",
                                           "\xC3\xA9", "\xE6\x97\xA5", "\xCC\x81", "\xFF", "\xD7\x90"};
  CellWidths widths;
  Charset utf8;
  for (int round = 0; round < 3000; ++round) {
    std::string line;
    for (std::size_t i = random() % 30; i > 0; --i) line += kParts[random() % kParts.size()];
    int columns = 2 + static_cast<int>(random() % 10);
    RowBreaker breaker(widths, columns * kCell, kTab * kCell);
    std::u16string drawn, wanted = utf8.ToWide(std::string_view(line));
    std::erase_if(wanted, [](char16_t unit) { return unit == u'\t' || unit == u'\f'; });
    breaker.BeginLine(std::string_view(line), utf8);
    while (breaker.NextRow()) {
      for (const PrintedPiece& piece : breaker.Pieces()) {
        drawn += piece.text;
        ASSERT_LE(std::accumulate(piece.advances.begin(), piece.advances.end(), piece.x), columns * kCell);
      }
      ASSERT_LE(breaker.Width(), columns * kCell);
    }
    ASSERT_EQ(drawn, wanted) << line;
  }
}

// Expanding all tabs and cutting the cells into rows, for any line of characters that are one cell wide.
TEST(RowBreaker, AgreesWithCuttingTheExpandedLine) {
  std::mt19937 random(8);
  static const std::string kBytes = "ab \t\t\x01";
  for (int round = 0; round < 3000; ++round) {
    std::string line(random() % 40, ' '), cells;
    int columns = 1 + static_cast<int>(random() % 12);
    for (char& c : line) c = kBytes[random() % kBytes.size()];
    for (char c : line) {
      std::size_t count = c == '\t' ? kTab - cells.size() % kTab : 1;
      cells.append(count, c == '\t' ? ' ' : c == '\x01' ? '.' : c);
    }
    std::string joined;
    auto width = static_cast<std::size_t>(columns);
    for (std::string row : Rows({line}, columns)) {
      for (std::size_t at; (at = row.find("\xC2\xB7")) != row.npos;) row.replace(at, 2, ".");
      ASSERT_LE(row.size(), width);
      joined += row.append(width - row.size(), ' ');
    }
    // Blanks at the end of the line need no row of their own.
    joined.resize(std::max(joined.size(), cells.size()), ' ');
    cells.resize(joined.size(), ' ');
    // A tab wider than a row spans no more than one.
    if (columns >= kTab) {
      ASSERT_EQ(joined, cells) << line << " in " << columns;
    }
  }
}

}  // namespace
}  // namespace tarrow
