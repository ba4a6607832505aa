#include "print/page_area.h"

#include <gtest/gtest.h>

#include <limits>

namespace tarrow {
namespace {

// A4 at ten pixels a millimetre, printable but for strips of 5, 6, 7 and 8 millimetres.
constexpr PageMetrics kStrips{1980, 2830, 1980, 2830, 50, 60, 70, 80};
constexpr PageMetrics kWhole{2100, 2970, 2100, 2970, 0, 0, 0, 0};

TEST(PageArea, CountsMarginsFromTheEdgesOfThePaper) {
  EXPECT_EQ(AreaWithin({250, 200, 250, 200}, kWhole), (PageArea{250, 200, 1850, 2770}));
  EXPECT_EQ(AreaWithin({250, 200, 250, 200}, kStrips), (PageArea{200, 140, 1800, 2710}));
}

TEST(PageArea, AnImplausibleMarginIsNone) {
  constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
  EXPECT_EQ(AreaWithin({701, 991, 701, 991}, kWhole), (PageArea{0, 0, 2100, 2970}));
  EXPECT_EQ(AreaWithin({700, 990, 700, 990}, kWhole), (PageArea{700, 990, 1400, 1980}));
  EXPECT_EQ(AreaWithin({-1, -1, -1, -1}, kWhole), (PageArea{0, 0, 2100, 2970}));
  EXPECT_EQ(AreaWithin({kMost, kMost, kMost, kMost}, kWhole), (PageArea{0, 0, 2100, 2970}));
  EXPECT_EQ(AreaWithin({kLeast, kLeast, kLeast, kLeast}, kWhole), (PageArea{0, 0, 2100, 2970}));
}

// Of a margin within the strip that cannot be printed on, all that can be is used.
TEST(PageArea, AMarginWithinTheStripIsTheEdgeOfWhatCanBePrinted) {
  EXPECT_EQ(AreaWithin({10, 10, 10, 10}, kStrips), (PageArea{0, 0, 1980, 2830}));
  EXPECT_EQ(AreaWithin({50, 60, 70, 80}, kStrips), (PageArea{0, 0, 1980, 2830}));
}

TEST(PageArea, APrinterThatDoesNotKnowItsSizeHasNoMargins) {
  EXPECT_EQ(AreaWithin({250, 200, 250, 200}, {1000, 2000, 0, 0, 0, 0, 0, 0}), (PageArea{0, 0, 1000, 2000}));
}

}  // namespace
}  // namespace tarrow
