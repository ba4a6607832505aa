#include "print/page_layout.h"

#include "base/exceptions.h"
#include "tests/print/recording_surface.h"
#include "tests/print/text_lines.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

constexpr int kCell = RecordingSurface::kCell;
constexpr int kLine = RecordingSurface::kLine;

// A page of 10 columns and 6 lines, two columns from the left edge and one line from the top.
PageFormat SmallPage() {
  PageFormat format;
  format.area = {2 * kCell, 1 * kLine, 12 * kCell, 7 * kLine};
  format.cellWidth = kCell;
  format.lineHeight = kLine;
  format.tabSize = 4;
  format.fields = {"a.txt", "C:\\a.txt", "d", "D", "t"};
  return format;
}

PageFormat HeadedPage() {
  PageFormat format = SmallPage();
  format.header = "&l&f";
  format.footer = "&r&p";
  return format;
}

std::string Printed(const PageFormat& format, std::string_view text) {
  RecordingSurface surface;
  TextLines lines(text);
  int drawn = PageLayout(format, surface, nullptr).Print(lines);
  EXPECT_EQ(static_cast<std::size_t>(drawn), surface.pages.size());
  return surface.Text();
}

TEST(PageLayout, FillsPages) {
  EXPECT_EQ(Printed(SmallPage(), "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n"),
            "-- 1\n\n  1\n  2\n  3\n  4\n  5\n  6\n-- 2\n\n  7\n");
}

TEST(PageLayout, PutsTheTextBetweenHeaderAndFooter) {
  EXPECT_EQ(Printed(HeadedPage(), "1\r\n2\r\n3"),
            "-- 1\n\n  a.txt\n\n  1\n  2\n\n           1\n-- 2\n\n  a.txt\n\n  3\n\n\n           2\n");
}

TEST(PageLayout, AFooterAloneTakesItsTwoLines) {
  PageFormat format = SmallPage();
  format.footer = "&p";
  EXPECT_EQ(Printed(format, "1\r\n2\r\n3\r\n4\r\n5"),
            "-- 1\n\n  1\n  2\n  3\n  4\n\n      1\n-- 2\n\n  5\n\n\n\n\n      2\n");
}

TEST(PageLayout, BreaksALongLineAtTheEdge) {
  EXPECT_EQ(Printed(SmallPage(), "1234567890abc\r\n\tx\ty"), "-- 1\n\n  1234567890\n  abc\n      x   y\n");
}

TEST(PageLayout, AnEmptyDocumentIsOnePage) {
  EXPECT_EQ(Printed(HeadedPage(), ""), "-- 1\n\n  a.txt\n\n\n\n\n           1\n");
  EXPECT_EQ(Printed(SmallPage(), ""), "-- 1\n");
  EXPECT_EQ(Printed(SmallPage(), "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"), "-- 1\n");
  EXPECT_EQ(Printed(SmallPage(), "\f"), "-- 1\n");
}

TEST(PageLayout, NoPageIsStartedForNothing) {
  EXPECT_EQ(Printed(SmallPage(), "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n"), "-- 1\n\n  1\n  2\n  3\n  4\n  5\n  6\n");
  EXPECT_EQ(Printed(SmallPage(), "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n\r\n \t\r\n\f"),
            "-- 1\n\n  1\n  2\n  3\n  4\n  5\n  6\n");
  EXPECT_EQ(Printed(SmallPage(), "\f\f1\f\f2\f"), "-- 1\n\n  1\n-- 2\n\n  2\n");
  // Six lines and an empty one: the page of the form feed is the second.
  EXPECT_EQ(Printed(SmallPage(), "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n\r\n\f7\r\n"),
            "-- 1\n\n  1\n  2\n  3\n  4\n  5\n  6\n-- 2\n\n  7\n");
}

TEST(PageLayout, BlankLinesWithinTheTextTakeTheirRoom) {
  EXPECT_EQ(Printed(SmallPage(), "\r\n1\r\n\r\n\r\n2"), "-- 1\n\n\n  1\n\n\n  2\n");
  EXPECT_EQ(Printed(SmallPage(), "1\r\n\r\n\r\n\r\n\r\n\r\n\r\n2"), "-- 1\n\n  1\n-- 2\n\n\n  2\n");
}

TEST(PageLayout, PrintsOnlyThePagesWanted) {
  PageFormat format = HeadedPage();
  format.range = {2, 3};
  EXPECT_EQ(Printed(format, "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9"),
            "-- 2\n\n  a.txt\n\n  3\n  4\n\n           2\n-- 3\n\n  a.txt\n\n  5\n  6\n\n           3\n");
  format.range = {3, 3};
  EXPECT_EQ(Printed(format, "1\r\n2\r\n3\r\n4"), "");
  format.range = {2, 1};
  EXPECT_EQ(Printed(format, "1\r\n2\r\n3\r\n4"), "");
}

// A document that is longer than the wanted pages is not read to its end.
TEST(PageLayout, StopsReadingBehindTheLastPage) {
  struct Endless final : PrintedLines {
    std::optional<TextView> Next() override {
      ++read;
      return std::string_view("x");
    }
    const Charset& LineCharset() const override { return charset; }
    int read = 0;
    Charset charset;
  } lines;
  PageFormat format = SmallPage();
  format.range.last = 2;
  RecordingSurface surface;
  EXPECT_EQ(PageLayout(format, surface, nullptr).Print(lines), 2);
  EXPECT_EQ(lines.read, 13);
}

TEST(PageLayout, APageTooLowForALineHasOne) {
  PageFormat format = HeadedPage();
  format.area.bottom = format.area.top + 1;
  RecordingSurface surface;
  TextLines lines("1\r\n2");
  EXPECT_EQ(PageLayout(format, surface, nullptr).Print(lines), 2);
}

TEST(PageLayout, AHeaderKeepsToTheLineAndTheLeftEdge) {
  PageFormat format = SmallPage();
  format.header = "&cab";
  EXPECT_EQ(Printed(format, "x"), "-- 1\n\n      ab\n\n  x\n");
  format.header = "&r1234567890ab";
  EXPECT_EQ(Printed(format, "x"), "-- 1\n\n  1234567890ab\n\n  x\n");
  format.header = "&la\tb\fc&r\xE6\x97\xA5";
  EXPECT_EQ(Printed(format, "x"), "-- 1\n\n  a b c   \xE6\x97\xA5\n\n  x\n");
}

TEST(PageLayout, AnEndOfThePatienceEndsIt) {
  struct Impatient final : Progress {
    void Poll() override { throw CYieldException(); }
  } progress;
  struct Endless final : PrintedLines {
    std::optional<TextView> Next() override { return std::string_view("\r"); }
    const Charset& LineCharset() const override { return charset; }
    Charset charset;
  } lines;
  struct Nowhere final : PrintSurface {
    const CharWidths& Widths() const override { return widths; }
    void BeginPage(int) override {}
    void EndPage() override {}
    void Draw(int, int, std::u16string_view, std::span<const int>) override {}
    CellWidths widths;
  } surface;
  PageFormat format = SmallPage();
  format.range.last = std::numeric_limits<int>::max();
  EXPECT_THROW(PageLayout(format, surface, &progress).Print(lines), CYieldException);
}

}  // namespace
}  // namespace tarrow
