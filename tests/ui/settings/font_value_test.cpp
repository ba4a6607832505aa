#include "ui/settings/font_value.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(FontValue, ReadsWhatIsWritten) {
  EXPECT_EQ((FontChoice{"Courier New", 13, 400, true}), ParseFont("Courier New,13,400,1"));
  EXPECT_EQ((FontChoice{"Terminal", 0, 0, false}), ParseFont("Terminal"));
  EXPECT_EQ((FontChoice{"F", -12, 0, false}), ParseFont("F,-12"));
  EXPECT_EQ("Courier New,-13,400,1", FormatFont({"Courier New", -13, 400, true}));
}

TEST(FontValue, AFaceOfAnImpossibleLengthIsNoFont) {
  EXPECT_EQ(FontChoice(), ParseFont(""));
  EXPECT_EQ(FontChoice(), ParseFont(",13,400,0"));
  EXPECT_EQ(FontChoice(), ParseFont(std::string(32, 'x') + ",13"));
  EXPECT_EQ(std::string(31, 'x'), ParseFont(std::string(31, 'x') + ",13").face);
}

}  // namespace
}  // namespace tarrow
