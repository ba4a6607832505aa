#include "edit/control/line_layout.h"

#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

// ASCII and what stands for control characters seven pixels wide, or a width for each letter; others twelve.
class FakeWidths final : public CharWidths {
 public:
  explicit FakeWidths(bool isFixed) : isFixed_(isFixed) {}
  int WidthOf(char32_t code) const override {
    ++asked;
    if (code >= 128 && code != DisplayedCode(1)) return 12;
    return isFixed_ ? 7 : 3 + static_cast<int>(code % 5);
  }
  int CommonWidth() const override { return isFixed_ ? 7 : 0; }
  bool ReachesBack(char32_t mark) const override { return mark == U'\u0308'; }

  mutable int asked = 0;

 private:
  bool isFixed_;
};

const TabStops kTabs{{}, 56};

struct Fixture {
  explicit Fixture(std::string bytes, bool isFixed = true) : text(std::move(bytes)), widths(isFixed) {}
  LineLayout Layout() const { return {view, Range(0, view.Size()), charset, widths, kTabs}; }

  std::string text;
  FakeWidths widths;
  Charset charset;
  TextView view{text};
};

TEST(LineLayout, PutsCharactersSideBySide) {
  Fixture f(
      "ab\tc\xC3\xA9"
      "d\te\xCC\x81z");
  const std::pair<int, int> kPlaces[] = {{0, 0},  {1, 7},   {2, 14},  {3, 56},   {4, 63},  {6, 75},
                                         {7, 82}, {8, 112}, {9, 119}, {11, 119}, {12, 126}};
  for (auto [at, x] : kPlaces) EXPECT_EQ(f.Layout().XOf(BytePos(at)), x) << at;
  EXPECT_EQ(f.Layout().Width(), 126);
}

TEST(LineLayout, ATabAtAStopReachesTheNextOne) {
  Fixture f("12345678\tx");
  EXPECT_EQ(f.Layout().XOf(BytePos(9)), 112);
}

TEST(LineLayout, StopsGivenOneByOneComeBeforeTheRegularOnes) {
  TabStops tabs{{10, 25}, 40};
  EXPECT_EQ(tabs.After(0), 10);
  EXPECT_EQ(tabs.After(10), 25);
  EXPECT_EQ(tabs.After(25), 40);
  EXPECT_EQ(tabs.After(40), 80);
}

TEST(LineLayout, AnEmptyLineHasOnePlace) {
  Fixture f("");
  EXPECT_EQ(f.Layout().Width(), 0);
  EXPECT_EQ(f.Layout().Nearest(100), BytePos(0));
  EXPECT_TRUE(f.Layout().Pieces(0, 100, {}).empty());
}

// XOf, Covering, Nearest and Pieces against adding widths one by one, for any bytes and any place of the gap.
TEST(LineLayout, AgreesWithAddingUpWidths) {
  std::mt19937 random(21);
  static const std::string kBytes = "abcxyz \t\t\x01\xC3\xA9\xE6\x97\xA5\xFF";
  for (int round = 0; round < 400; ++round) {
    std::string bytes(random() % (round % 20 ? 30 : 1200), ' ');
    for (char& c : bytes) c = kBytes[random() % (round % 3 ? kBytes.size() : 9)];
    Fixture f(bytes, round % 2 == 0);
    std::size_t cut = random() % (bytes.size() + 1);
    f.view = {std::string_view(f.text).substr(0, cut), std::string_view(f.text).substr(cut)};
    LineLayout layout = f.Layout();
    Pixels x = 0;
    for (BytePos at(0); at < f.view.End();) {
      Character c = f.charset.At(f.view, at);
      Pixels width = c.code == '\t' ? kTabs.After(x) - x : f.widths.WidthOf(DisplayedCode(c.code));
      ASSERT_EQ(layout.XOf(at), x);
      for (Pixels inside : {x, x + width / 2, x + width - 1}) ASSERT_EQ(layout.Covering(inside).at, at);
      ASSERT_EQ(layout.Nearest(x), at);
      ASSERT_EQ(layout.Nearest(x + width - 1), width > 1 ? at + c.length : at);
      at += c.length;
      x += width;
    }
    ASSERT_EQ(layout.Width(), x);
    ASSERT_EQ(layout.Nearest(x + 50), f.view.End());
  }
}

// Each piece as its place and its text, tabs as "->".
std::string Shown(const std::vector<LinePiece>& pieces) {
  std::string shown;
  for (const LinePiece& piece : pieces) {
    std::string text = Charset().FromWide(piece.text);
    shown += std::to_string(piece.x) + (text.empty() ? "->" : ":" + text) + " ";
  }
  return shown;
}

TEST(LineLayout, CutsWhatIsDrawnAtTabsAndWhereAskedTo) {
  Fixture f("ab\tcdef\x01");
  EXPECT_EQ(Shown(f.Layout().Pieces(0, 200, {})), "0:ab 14-> 56:cdef\xC2\xB7 ");
  EXPECT_EQ(Shown(f.Layout().Pieces(0, 200, {BytePos(1), BytePos(5)})), "0:a 7:b 14-> 56:cd 70:ef\xC2\xB7 ");
  EXPECT_EQ(Shown(f.Layout().Pieces(60, 72, {})), "56:cde ");
  EXPECT_EQ(Shown(f.Layout().Pieces(500, 600, {})), "");
}

TEST(LineLayout, KeepsMarksWithTheirCharacterAndOrderAsInTheText) {
  Fixture f("e\xCC\x81x\xD7\xA9\xD7\x9Cy");  // e and an acute accent, x, two Hebrew letters, y
  EXPECT_EQ(Shown(f.Layout().Pieces(0, 200, {})), "0:e\xCC\x81x 14:\xD7\xA9 26:\xD7\x9C 38:y ");
}

// A mark stands in the place of its letter, or behind it where the font has made it to reach back.
TEST(LineLayout, DrawsMarksOverTheirLetter) {
  auto advances = [](std::string text) {
    return Fixture(std::move(text)).Layout().Pieces(0, 200, {})[0].advances;
  };
  EXPECT_EQ(advances("e\xCC\x81x"), (std::vector<int>{0, 7, 7}));
  EXPECT_EQ(advances("e\xCC\x81\xCC\xA3x"), (std::vector<int>{0, 0, 7, 7}));
  EXPECT_EQ(advances("e\xCC\x88x"), (std::vector<int>{7, 0, 7}));
  EXPECT_EQ(advances("e\xCC\x88\xCC\x81x"), (std::vector<int>{0, 0, 7, 7}));
  EXPECT_EQ(advances("\xF0\x9F\x98\x80\xCC\x81x"), (std::vector<int>{0, 0, 12, 7}));
}

TEST(LineLayout, ACharacterOfTwoUnitsAdvancesOnce) {
  Fixture f("\xF0\x9F\x98\x80z");
  LinePiece piece = f.Layout().Pieces(0, 100, {})[0];
  EXPECT_EQ(piece.text.size(), 3u);
  EXPECT_EQ(piece.advances, (std::vector<int>{12, 0, 7}));
}

// In a line of a megabyte the second question starts near its answer, until the text before it changes.
TEST(LineLayout, CheckpointsShortenTheWayThroughALongLine) {
  Fixture f(std::string(1'000'000, 'a') + "\tz", false);
  LayoutCheckpoints checkpoints;
  LineLayout layout(f.view, Range(0, f.view.Size()), f.charset, f.widths, kTabs, &checkpoints);
  Pixels width = layout.Width();
  f.widths.asked = 0;
  EXPECT_EQ(layout.Width(), width);
  EXPECT_EQ(layout.XOf(BytePos(500'000)), 500'000 * (width - layout.XOf(BytePos(1'000'001))));
  EXPECT_EQ(layout.Nearest(width), f.view.End());
  EXPECT_LT(f.widths.asked, 25'000);
}

TEST(LineLayout, CheckpointsChangeNoAnswer) {
  std::mt19937 random(4);
  LayoutCheckpoints checkpoints;
  Fixture f(std::string(60'000, 'a'));
  for (int round = 0; round < 60; ++round) {
    auto at = random() % f.text.size();
    f.text.replace(at, random() % 3, "b\t\xC3\xA9" + std::string(random() % 3, 'c'));
    f.view = TextView(f.text);
    checkpoints.Truncate(BytePos(static_cast<std::int64_t>(at)));
    LineLayout plain = f.Layout();
    LineLayout quick(f.view, Range(0, f.view.Size()), f.charset, f.widths, kTabs, &checkpoints);
    for (int question = 0; question < 8; ++question) {
      BytePos place = f.charset.Snap(f.view, BytePos(static_cast<std::int64_t>(random() % f.text.size())));
      Pixels x = plain.XOf(place);
      ASSERT_EQ(quick.XOf(place), x);
      ASSERT_EQ(quick.Nearest(x), plain.Nearest(x));
      ASSERT_EQ(quick.Covering(x + 3).at, plain.Covering(x + 3).at);
    }
  }
}

TEST(LineLayout, MarksWithoutEndAreNotDrawnWithoutEnd) {
  std::string marks = "e";
  for (int i = 0; i < 100'000; ++i) marks += "\xCC\x81";
  Fixture f(marks);
  std::size_t units = 0;
  for (const LinePiece& piece : f.Layout().Pieces(0, 100, {})) {
    EXPECT_LE(piece.text.size(), 8192u);
    units += piece.text.size();
  }
  EXPECT_LT(units, 100'000u);
}

}  // namespace
}  // namespace tarrow
