#include "edit/control/drawn_row.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// Pieces one behind another, ten pixels a letter; a capital stands for another style.
std::vector<LinePiece> Row(std::initializer_list<const char16_t*> texts, Pixels x = 0) {
  std::vector<LinePiece> row;
  for (const char16_t* text : texts) {
    LinePiece piece;
    piece.text = text;
    piece.x = x;
    piece.width = 10 * static_cast<Pixels>(piece.text.size());
    piece.advances.assign(piece.text.size(), 10);
    if (piece.text[0] >= u'A' && piece.text[0] <= u'Z') piece.style = Style::kKeyword;
    x += piece.width;
    row.push_back(piece);
  }
  return row;
}

struct Case {
  const char* what;
  std::vector<LinePiece> shown, wanted;
  RowChange change;
};

TEST(DrawnRow, TellsWhatNeedNotBeDrawn) {
  auto b = Row({u"b"})[0], otherStyle = b;
  otherStyle.style = Style::kString;
  const Case cases[] = {
      {"nothing is known", {}, Row({u"a", u"B"}), {0, 0, 0}},
      {"nothing is wanted", Row({u"a"}), {}, {0, 0, 0}},
      {"all is there", Row({u"a", u"B"}), Row({u"a", u"B"}), {2, 0, 0}},
      {"the first has grown", Row({u"a", u"B", u"c"}), Row({u"aa", u"B", u"c"}), {0, 2, 10}},
      {"one in the middle has shrunk", Row({u"a", u"Bx", u"c"}), Row({u"a", u"B", u"c"}), {1, 1, -10}},
      {"one has been replaced", Row({u"a", u"B", u"c"}), Row({u"a", u"D", u"c"}), {1, 1, 0}},
      {"one more at the end", Row({u"a"}), Row({u"a", u"B"}), {1, 0, 10}},
      {"one more of the same", Row({u"a", u"a"}), Row({u"a", u"a", u"a"}), {2, 0, 10}},
      {"another style", {b}, {otherStyle}, {0, 0, 0}},
      {"cut off at the edge",
       Row({u"a", u"B", u"cccccccccc"}),
       Row({u"aa", u"B", u"cccccccccc"}),
       {0, 0, 10}},
      {"beginning in front of it", Row({u"a", u"b"}, -15), Row({u"aa", u"b"}, -15), {0, 0, 10}},
  };
  for (const Case& c : cases) {
    RowChange change = CompareRows(c.shown, c.wanted, 0, 100);
    EXPECT_EQ(c.change.same, change.same) << c.what;
    EXPECT_EQ(c.change.moved, change.moved) << c.what;
    EXPECT_EQ(c.change.by, change.by) << c.what;
  }
}

}  // namespace
}  // namespace tarrow
