#include "print/header_text.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

using enum HeaderPlace;
using Pieces = std::vector<HeaderPiece>;

const HeaderFields kFields{"Main.c", "C:\\Src\\Main.c", "1/2/26", "January 2, 2026", "9:05"};

TEST(HeaderText, ExpandsPatterns) {
  struct Case {
    const char* pattern;
    Pieces pieces;
  };
  const Case kCases[] = {
      {"", {}},
      {"&f", {{kCentre, "Main.c"}}},
      {"Page &p", {{kCentre, "Page 3"}}},
      {"&l&f&rPage &p", {{kLeft, "Main.c"}, {kRight, "Page 3"}}},
      {"a&lb&cc&rd", {{kCentre, "a"}, {kLeft, "b"}, {kCentre, "c"}, {kRight, "d"}}},
      {"&F &d &D &t", {{kCentre, "C:\\Src\\Main.c 1/2/26 January 2, 2026 9:05"}}},
      {"&x&P&&f", {{kCentre, "&x&P&&f"}}},
      {"tail &", {{kCentre, "tail &"}}},
      {"&r", {}},
      {"&r&l&r1", {{kRight, "1"}}},
      {"&\xC3\xA9 \xC3\xA9", {{kCentre, "&\xC3\xA9 \xC3\xA9"}}},
  };
  for (const Case& c : kCases) EXPECT_EQ(ExpandHeader(c.pattern, kFields, 3), c.pieces) << c.pattern;
}

// A name is text and not a pattern.
TEST(HeaderText, DoesNotExpandWhatItHasPutIn) {
  EXPECT_EQ(ExpandHeader("&f", {"R&D&p.txt", "", "", "", ""}, 1), (Pieces{{kCentre, "R&D&p.txt"}}));
}

}  // namespace
}  // namespace tarrow
