#include "viewer/records/utf8_check.h"

#include "base/utf16.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

// Bytes that begin, go on and end characters of every length, at the borders of what is allowed.
constexpr std::string_view kBytes =
    "a\n\x7F\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE1\xED\xEF\xF0\xF1\xF4\xF5\xFF";

TEST(Utf8Check, SaysWhatALookAtTheWholeTextSaysHoweverItIsCut) {
  std::mt19937 random(12);
  int valid = 0;
  for (int round = 0; round < 200000; ++round) {
    std::string text;
    for (std::size_t n = random() % 8; n > 0; --n) {
      if (random() % 2)
        AppendUtf8(text, 1u << random() % 17);
      else
        text += kBytes[random() % kBytes.size()];
    }
    Utf8Check check;
    std::size_t cut = random() % (text.size() + 1);
    check.Take(std::string_view(text).substr(0, cut));
    check.Take(std::string_view(text).substr(cut));
    ASSERT_EQ(check.IsUtf8(), IsUtf8(text)) << testing::PrintToString(text);
    valid += check.IsUtf8();
  }
  EXPECT_GT(valid, 10000);
}

TEST(Utf8Check, PassesLongStretchesOfAscii) {
  std::string text(100000, 'x');
  text += "\xC3\xA9";
  Utf8Check check;
  check.Take(text);
  EXPECT_TRUE(check.IsUtf8());
  check.Take(text + "\xE9t");
  EXPECT_FALSE(check.IsUtf8());
}

}  // namespace
}  // namespace tarrow
