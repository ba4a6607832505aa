#include "search/find/replacement.h"

#include <gtest/gtest.h>

namespace tarrow {

namespace {

// The match is "abc Def", its groups "abc" and "Def"; group 3 took no part and group 4 is empty.
constexpr std::string_view kText = "-abc Def-";

MatchRegisters Registers() {
  MatchRegisters registers;
  auto set = [&](std::size_t r, int start, int end) {
    registers.start[r] = start;
    registers.end[r] = end;
  };
  set(0, 1, 8);
  set(1, 1, 4);
  set(2, 5, 8);
  set(4, 4, 4);
  return registers;
}

std::string Build(std::string_view source, Charset charset = Charset()) {
  Replacement replacement(source, charset);
  replacement.SetClipboard("Clip");
  std::string out;
  replacement.Build(TextView(kText.substr(0, 3), kText.substr(3)), Registers(), out);
  return out;
}

}  // namespace

TEST(Replacement, PutsInWhatItNames) {
  struct Row {
    const char* source;
    const char* built;
  };
  const Row kRows[] = {
      {"", ""},
      {"plain", "plain"},
      {"<&>", "<abc Def>"},
      {"\\0", "abc Def"},
      {"\\2 \\1", "Def abc"},
      {"\\3|\\4|\\9", "||"},
      {"a\\nb\\tc", "a\r\nb\tc"},
      {"\\p!", "Clip!"},
      {"\\&\\\\", "&\\"},
      {"\\", "\\"},
      {"x\\", "x\\"},
      {"\\q\\é", "qé"},
      {"\\u&", "Abc Def"},
      {"\\l\\2", "def"},
      {"\\U\\1\\E-x", "ABC-x"},
      {"\\U\\1\\e-x", "ABC-x"},
      {"\\L&\\p", "abc defclip"},
      {"\\u\\3\\1", "Abc"},
      {"\\Uab\\ucd", "ABCd"},
      {"\\uélan \\Uété", "Élan ÉTÉ"},
      {"\\l\\UA", "A"},
      {"\\Uß&", "ßABC DEF"},
  };
  for (const Row& row : kRows) EXPECT_EQ(Build(row.source), row.built) << row.source;
}

TEST(Replacement, IsWrittenInTheCharacterSetOfTheText) {
  EXPECT_EQ(Build("é\\Ué\\e\\é", Charset(WesternCodePage())), "\xE9\xC9\xE9");
}

TEST(Replacement, KnowsWhetherItNeedsTheClipboard) {
  EXPECT_TRUE(Replacement("a\\pb", Charset()).UsesClipboard());
  EXPECT_FALSE(Replacement("a\\\\pb", Charset()).UsesClipboard());
}

TEST(Replacement, SurvivesRegistersOfAnotherText) {
  std::string out;
  Replacement("[&\\2]", Charset()).Build(TextView("-ab"), Registers(), out);
  EXPECT_EQ(out, "[ab]");
}

}  // namespace tarrow
