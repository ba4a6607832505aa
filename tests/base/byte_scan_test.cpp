#include "base/byte_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tarrow {
namespace {

// Every function against its one-line definition, over texts of every length around the block size, at every
// alignment, with few and many hits.
TEST(ByteScan, AgreesWithItsDefinitionAtEveryLengthAndAlignment) {
  std::mt19937 random(1);
  std::string store(400, 'x');
  for (int hits : {2, 16, 300}) {
    for (char& c : store) {
      unsigned r = random();
      c = r % static_cast<unsigned>(hits) == 0 ? "ab\xC3\x80"[r / 512 % 4] : 'x';
    }
    for (std::size_t start = 0; start < 20; ++start) {
      for (std::size_t n = 0; n < 100; ++n) {
        std::string_view text = std::string_view(store).substr(start, n);
        auto index = [&](auto it) { return static_cast<std::size_t>(it - text.begin()); };
        ASSERT_EQ(FindByte(text, 'a'), index(std::find(text.begin(), text.end(), 'a')));
        ASSERT_EQ(FindEitherByte(text, 'a', 'b'),
                  index(std::find_if(text.begin(), text.end(), [](char c) { return c == 'a' || c == 'b'; })));
        ASSERT_EQ(FindHighByte(text),
                  index(std::find_if(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; })));
        ASSERT_EQ(CountByte(text, 'a'), static_cast<std::size_t>(std::count(text.begin(), text.end(), 'a')));
        ASSERT_EQ(FindLastByte(text, 'a'), std::min(text.rfind('a'), text.size()));
        std::string copy(n + 1, '!');
        ASSERT_EQ(CopyUntilByte(text, copy.data(), 'a'), FindByte(text, 'a'));
        ASSERT_EQ(copy.substr(0, FindByte(text, 'a')), text.substr(0, FindByte(text, 'a')));
        ASSERT_EQ(copy[n], '!');
      }
    }
  }
}

// Gaps of every length around the bounds, everywhere in a text that is dense otherwise.
TEST(ByteScan, SeesLongGapsWhileItCounts) {
  for (std::size_t gap : {0u, 100u, 128u, 129u, 200u, 255u, 256u, 257u, 500u}) {
    for (std::size_t before = 0; before < 140; ++before) {
      for (std::size_t after : {0u, 1u, 63u, 64u, 5000u}) {
        std::string text = std::string(before, 'a') + std::string(gap, 'x') + std::string(after, 'a');
        ByteCount found = CountByteAndGaps(text, 'a');
        ASSERT_EQ(found.count, before + after);
        if (gap >= 256 || gap <= 128) {
          ASSERT_EQ(found.hasLongGap, gap >= 256) << gap << " " << before << " " << after;
        }
      }
    }
  }
  EXPECT_EQ(CountByteAndGaps(std::string(100'003, 'a'), 'a').count, 100'003u);
}

TEST(ByteScan, CountsMoreHitsThanALaneHolds) {
  EXPECT_EQ(CountByte(std::string(100'003, 'a'), 'a'), 100'003u);
}

}  // namespace
}  // namespace tarrow
