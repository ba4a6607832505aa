#include "base/byte_mask.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tarrow {
namespace {

template <typename Wanted>
ByteMask NaiveMask(const std::string& block, Wanted wanted) {
  ByteMask mask = 0;
  for (std::size_t i = 0; i < kMaskBlock; ++i)
    mask |= static_cast<ByteMask>(wanted(static_cast<unsigned char>(block[i]))) << i;
  return mask;
}

TEST(ByteMask, AgreesWithItsDefinition) {
  std::mt19937 random(1);
  std::string block(kMaskBlock, 'x');
  for (int round = 0; round < 20'000; ++round) {
    // All bytes at random, or few controls among text.
    for (char& c : block) c = round % 2 ? static_cast<char>(random()) : "xxxxxxx\n\r\t\v\x1F"[random() % 12];
    const char* p = block.data();
    char wanted = block[random() % kMaskBlock];
    ASSERT_EQ(MaskEqual(p, wanted),
              NaiveMask(block, [=](unsigned char c) { return c == static_cast<unsigned char>(wanted); }));
    auto low = static_cast<unsigned char>(random()),
         high = static_cast<unsigned char>(low + random() % (256u - low));
    ASSERT_EQ(MaskBetween(p, low, high),
              NaiveMask(block, [=](unsigned char c) { return c >= low && c <= high; }));
    ControlMasks controls = MaskControls(p);
    ASSERT_EQ(controls.lf, NaiveMask(block, [](unsigned char c) { return c == '\n'; }));
    ASSERT_EQ(controls.cr, NaiveMask(block, [](unsigned char c) { return c == '\r'; }));
    ASSERT_EQ(controls.hasOther,
              NaiveMask(block, [](unsigned char c) { return c < 0x20 && (c < '\t' || c > '\r'); }) != 0);
  }
}

TEST(ByteMask, TellsTheBitsBelowTheLowest) {
  EXPECT_EQ(BitsBelow(0b1000), ByteMask{0b111});
  EXPECT_EQ(BitsBelow(0b1010), ByteMask{1});
  EXPECT_EQ(BitsBelow(1), ByteMask{0});
  EXPECT_EQ(BitsBelow(0), ~ByteMask{0});
}

}  // namespace
}  // namespace tarrow
