#include "ui/selector/window_number.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(WindowNumber, OnlyDigitsAreTaken) {
  EXPECT_EQ(DigitsOf("1a2 3\r\n-4.5"), "12345");
  EXPECT_EQ(DigitsOf("\xD9\xA3 x"), "") << "digits of other scripts are no numbers here";
}

TEST(WindowNumber, IsThatOfAWindow) {
  EXPECT_EQ(ReadWindowNumber("1", 3), 1);
  EXPECT_EQ(ReadWindowNumber("003", 3), 3);
  for (const char* text : {"", "0", "4", "-1", "1x", " 1", "99999999999999999999"})
    EXPECT_EQ(ReadWindowNumber(text, 3), std::nullopt) << text;
  EXPECT_EQ(ReadWindowNumber("1", 0), std::nullopt);
}

TEST(WindowNumber, StepsGoRound) {
  EXPECT_EQ(StepWindowNumber(1, 1, 3), 2);
  EXPECT_EQ(StepWindowNumber(3, 1, 3), 1);
  EXPECT_EQ(StepWindowNumber(1, -1, 3), 3);
  EXPECT_EQ(StepWindowNumber(2, -7, 3), 1);
  EXPECT_EQ(StepWindowNumber(0, 1, 3), 1) << "none was chosen";
  EXPECT_EQ(StepWindowNumber(0, 1, 0), 0);
}

}  // namespace
}  // namespace tarrow
