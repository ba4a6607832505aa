#include "viewer/views/view_paint.h"

#include "viewer/views/hex_view_rows.h"
#include "viewer/views/text_view_rows.h"
#include "viewer/views/view_moves.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

namespace tarrow {
namespace {

constexpr CellSize kCell{8, 12};

// Keeps what is drawn, and how often each pixel was.
class Recording final : public ViewSurface {
 public:
  explicit Recording(const PixelRect& client)
      : client_(client), pixels_(static_cast<std::size_t>(client.right * client.bottom)) {}

  struct Drawn {
    PixelRect area;
    std::u16string text;
    bool isSelected;
  };

  void Draw(const PixelRect& area, std::u16string_view text, std::span<const int> advances,
            bool isSelected) override {
    ASSERT_LE(client_.left, area.left);
    ASSERT_LT(area.left, area.right);
    ASSERT_LE(area.right, client_.right);
    ASSERT_LE(area.bottom, client_.bottom);
    ASSERT_EQ(advances.size(), text.size());
    drawn.push_back({area, std::u16string(text), isSelected});
    for (int y = area.top; y < area.bottom; ++y)
      for (int x = area.left; x < area.right; ++x) ++pixels_[static_cast<std::size_t>(y * client_.right + x)];
  }

  // How often each pixel between two heights was drawn; nothing when they differ.
  int TimesBetween(int from, int to) const {
    int times = pixels_[static_cast<std::size_t>(from * client_.right)];
    for (int i = from * client_.right; i < to * client_.right; ++i)
      if (pixels_[static_cast<std::size_t>(i)] != times) return -1;
    return times;
  }

  std::u16string TextAt(int top, bool selectedOnly = false) const {
    std::u16string text;
    for (const Drawn& d : drawn)
      if (d.area.top == top && (d.isSelected || !selectedOnly)) text += d.text;
    return text;
  }

  std::vector<Drawn> drawn;

 private:
  PixelRect client_;
  std::vector<int> pixels_;
};

class ViewPaint : public testing::Test {
 protected:
  void Open(std::string content) {
    bytes = std::move(content);
    ASSERT_EQ(file.Open(std::make_unique<StringSource>(bytes)), RecordFileOutcome::kOpened);
  }

  std::string bytes;
  CFixedRecordFile file{kHexRowBytes};
  HexViewRows rows{file};
};

TEST_F(ViewPaint, AScrollDrawsEachRowOnceAndNothingElse) {
  Open(std::string(5000, 'x'));
  constexpr PixelRect kClient{0, 0, 300, 100};  // 8 rows and a bit
  ViewState state = Moved({}, {ViewMove::kScrollDown}, false, {8, 37}, rows);
  Recording surface(kClient);
  PaintView(surface, rows, state, kCell, kClient, 0, 100);
  EXPECT_EQ(surface.TimesBetween(0, 100), 1);
  EXPECT_EQ(surface.drawn.size(), 9u) << "eight rows, and the strip below them";
  EXPECT_EQ(surface.TextAt(0).substr(0, 10), u"      10: ");
  EXPECT_EQ(surface.TextAt(84).substr(0, 10), u"      80: ");
  EXPECT_EQ(surface.TextAt(96), u"") << "a row that is not whole is not drawn";
}

TEST_F(ViewPaint, DrawsOnlyTheRowsThatAreAskedFor) {
  Open(std::string(5000, 'x'));
  constexpr PixelRect kClient{0, 0, 300, 120};
  Recording surface(kClient);
  PaintView(surface, rows, {}, kCell, kClient, 25, 36);
  EXPECT_EQ(surface.drawn.size(), 1u);
  EXPECT_EQ(surface.TimesBetween(24, 36), 1);
}

TEST_F(ViewPaint, FillsWhatLiesBehindTheLastRow) {
  Open(std::string(33, 'x'));
  constexpr PixelRect kClient{0, 0, 800, 200};
  Recording surface(kClient);
  PaintView(surface, rows, {}, kCell, kClient, 0, 200);
  EXPECT_EQ(surface.TimesBetween(0, 200), 1);
  EXPECT_EQ(surface.TextAt(36), u"");
  Recording empty(kClient);
  PaintEmpty(empty, kClient);
  EXPECT_EQ(empty.TimesBetween(0, 200), 1);
}

TEST_F(ViewPaint, DrawsASelectionWithinTheRow) {
  Open("0123456789abcdef0123456789abcdef");
  constexpr PixelRect kClient{0, 0, 600, 36};
  ViewState state;
  state.selection = rows.CellsOf({1, 6});
  Recording surface(kClient);
  PaintView(surface, rows, state, kCell, kClient, 0, 36);
  EXPECT_EQ(surface.TextAt(0, true), u"313233 343512345");
  EXPECT_EQ(surface.TextAt(12, true), u"");
  EXPECT_EQ(surface.TimesBetween(0, 36), 1);
  state.left = ColumnNo(15);  // within the digits that are selected
  Recording scrolled(kClient);
  PaintView(scrolled, rows, state, kCell, kClient, 0, 36);
  EXPECT_EQ(scrolled.TextAt(0, true), u"233 343512345");
  EXPECT_EQ(scrolled.TimesBetween(0, 36), 1);
}

// Rows of characters of all widths, scrolled to any column in a window of any width: every pixel once, and no
// character but those that begin in view.
TEST(TextPaint, NeverCutsACharacterAtTheLeftEdge) {
  std::string text =
      "a\xE6\xBC\xA2\tb\xE5\xAD\x97\xE5\xAD\x97\xD7\xA9\xD7\x9C"
      "e\xCC\x81 end\n\xE6\xBC\xA2\n";
  CLineFile file(8);
  ASSERT_EQ(file.Open(std::make_unique<StringSource>(text)), RecordFileOutcome::kOpened);
  TextViewRows rows(file, 8);
  std::mt19937 random(2);
  for (int left = 0; left < 24; ++left) {
    PixelRect client{0, 0, static_cast<int>(40 + random() % 200), 30};
    ViewState state;
    state.left = ColumnNo(left);
    state.selection = {{LineNo(0), ColumnNo(static_cast<int>(random() % 10))}, {LineNo(1), ColumnNo(2)}};
    Recording surface(client);
    PaintView(surface, rows, state, kCell, client, 0, 30);
    ASSERT_EQ(surface.TimesBetween(0, 30), 1) << left;
    std::u16string shown = surface.TextAt(0);
    ASSERT_EQ(shown, rows.Read(LineNo(0)).Piece({left, left + (client.right + 7) / 8}).text) << left;
  }
}

// What is written from right to left is drawn character by character.
TEST(TextPaint, KeepsTheOrderOfTheText) {
  std::string text = "a\xD7\xA9\xD7\x9C\xD7\x95z\n";
  CLineFile file(8);
  ASSERT_EQ(file.Open(std::make_unique<StringSource>(text)), RecordFileOutcome::kOpened);
  TextViewRows rows(file, 8);
  constexpr PixelRect kClient{0, 0, 100, 12};
  Recording surface(kClient);
  PaintView(surface, rows, {}, kCell, kClient, 0, 12);
  std::vector<std::u16string> texts;
  for (const auto& drawn : surface.drawn) texts.push_back(drawn.text);
  EXPECT_EQ(texts, (std::vector<std::u16string>{u"a", u"\u05E9", u"\u05DC", u"\u05D5", u"z", u""}));
}

}  // namespace
}  // namespace tarrow
