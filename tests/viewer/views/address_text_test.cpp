#include "viewer/views/address_text.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(AddressText, ReadsDigitsAndNamesTheFirstThatIsNone) {
  EXPECT_EQ(ParseAddress("ff").address, 255u);
  EXPECT_EQ(ParseAddress("FFFFFFFF").address, 0xFFFFFFFFu);
  EXPECT_EQ(ParseAddress("0012aB").address, 0x12ABu);
  EXPECT_TRUE(ParseAddress("").IsRight());
  EXPECT_EQ(ParseAddress("").address, 0u);
  EXPECT_EQ(ParseAddress("1G").wrongAt, 1u);
  EXPECT_EQ(ParseAddress(" 1").wrongAt, 0u);
  EXPECT_EQ(ParseAddress("0x10").wrongAt, 1u);
  EXPECT_EQ(ParseAddress("123456789").wrongAt, 8u);
}

TEST(AddressText, WritesWhatItReads) {
  EXPECT_EQ(FormatAddress(0), "0");
  EXPECT_EQ(FormatAddress(0xABCDEF01), "ABCDEF01");
}

}  // namespace
}  // namespace tarrow
