#include "print/margins.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

const LengthFormat kCentimetres{true, "."};
const LengthFormat kInches{false, "."};

TEST(Margins, ShowInBothMeasures) {
  struct Case {
    int length;
    const char* centimetres;
    const char* inches;
  };
  // 253 tenths of a millimetre are 0.996 inches.
  constexpr Case kCases[] = {{0, "0.00", "0.00"},   {1, "0.01", "0.00"},      {250, "2.50", "0.98"},
                             {253, "2.53", "1.00"}, {254, "2.54", "1.00"},    {381, "3.81", "1.50"},
                             {200, "2.00", "0.79"}, {2970, "29.70", "11.69"}, {-5, "-0.05", "-0.02"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(kCentimetres.Text(c.length), c.centimetres) << c.length;
    EXPECT_EQ(kInches.Text(c.length), c.inches) << c.length;
  }
}

TEST(Margins, ReadInBothMeasures) {
  struct Case {
    const char* text;
    int centimetres, inches;
  };
  constexpr Case kCases[] = {{"0", 0, 0},
                             {"1.5", 150, 381},
                             {"2.50", 250, 635},
                             {"1", 100, 254},
                             {"1.", 100, 254},
                             {".5", 50, 127},
                             {"0.98", 98, 248},
                             {"1.999", 200, 508},
                             {"1.994", 199, 505},
                             {"0.0000000049", 0, 0},
                             {"0.3333333333333333333333333333", 33, 83},
                             {"007.10", 710, 1803}};
  for (const Case& c : kCases) {
    EXPECT_EQ(kCentimetres.Read(c.text), c.centimetres) << c.text;
    EXPECT_EQ(kInches.Read(c.text), c.inches) << c.text;
  }
}

TEST(Margins, RefuseWhatIsNoLength) {
  for (const char* text : {"", ".", "-1", "+1", " 1", "1 ", "1.5.", "1.5x", "1,5", "x", "1e3", "1..5",
                           "99999999999", "99999999999999999999999999"}) {
    EXPECT_FALSE(kCentimetres.Read(text)) << text;
    EXPECT_FALSE(kInches.Read(text)) << text;
  }
}

TEST(Margins, FollowTheDecimalSeparatorOfTheRegion) {
  LengthFormat comma{true, ","}, word{true, "::"};
  EXPECT_EQ(comma.Text(250), "2,50");
  EXPECT_EQ(comma.Read("2,5"), 250);
  EXPECT_FALSE(comma.Read("2.5"));
  EXPECT_EQ(word.Read("2::5"), 250);
  EXPECT_FALSE(word.Read("2:5"));
}

TEST(Margins, EveryCentimetreComesBackAsItWasShown) {
  for (int length = 0; length < 3000; ++length)
    ASSERT_EQ(kCentimetres.Read(kCentimetres.Text(length)), length);
}

TEST(Margins, AreStoredAsFourNumbers) {
  EXPECT_EQ(FormatMargins({}), "250,200,250,200");
  EXPECT_EQ(ParseMargins("1,2,3,4"), (Margins{1, 2, 3, 4}));
  EXPECT_EQ(ParseMargins("-1, 2,3,4000"), (Margins{-1, 2, 3, 4000}));
  EXPECT_EQ(ParseMargins(""), Margins());
  EXPECT_EQ(ParseMargins("100"), (Margins{100, 200, 250, 200}));
  EXPECT_EQ(ParseMargins("100,x,30,40"), (Margins{100, 200, 250, 200}));
  EXPECT_EQ(ParseMargins("100,99999999999999,30,40"), (Margins{100, 200, 250, 200}));
}

}  // namespace
}  // namespace tarrow
