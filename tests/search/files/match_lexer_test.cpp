#include "search/files/match_lexer.h"
#include "tests/edit/lexers/styled_text.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarrow {
namespace {

struct Case {
  const char* pattern;
  FindOptions options;
  const char* line;
  const char* styles;
};

TEST(MatchLexer, ShowsWhatWasFound) {
  const Case cases[] = {
      {"int", {}, "a.c(1): int print", "ppp.n...mmm...mmm"},
      {"INT", {}, "a.c(1): int", "ppp.n......"},
      {"INT", {false, false}, "a.c(1): int", "ppp.n...mmm"},
      {"int", {true, true}, "a.c(1): print int", "ppp.n.........mmm"},
      {"^a*", {}, "a.c(1): aab a", "ppp.n...mm..."},
      {"x*", {}, "a.c(1): ab", "ppp.n....."},
      {"c", {}, "a.c: 3", "ppp..n"},
      {"[", {}, "a.c(1): [", "ppp.n...."},
      {"\xC3\x89", {false, false}, "a.c(1): x\xC3\xA9", "ppp.n....mm"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.styles, StylesOf(MatchLexer(c.pattern, c.options), c.line)) << c.pattern;
}

TEST(MatchLexer, GivesAPatternUpThatTakesLong) {
  MatchLexer lexer("\\(\\(a*\\)*\\)*b", {});
  std::string lines;
  for (int i = 0; i < 100; ++i) lines += "a.c(1): " + std::string(200, 'a') + "\n";
  auto start = std::chrono::steady_clock::now();
  StylesOf(lexer, lines);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

}  // namespace
}  // namespace tarrow
