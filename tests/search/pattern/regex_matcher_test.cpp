#include "search/pattern/regex_matcher.h"

#include "base/exceptions.h"
#include "search/pattern/regex_compiler.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarrow {
namespace {

CompiledPattern Compiled(const std::string& pattern, bool foldCase = false) {
  CompiledPattern compiled;
  compiled.foldCase = foldCase;
  EXPECT_EQ(CompilePattern(pattern, compiled), PatternError::kNone) << pattern;
  return compiled;
}

std::int32_t Match(const std::string& pattern, const std::string& text, int position = 0) {
  CompiledPattern compiled = Compiled(pattern);
  TextView view(text);
  return MatchAt(compiled, view, BytePos(position), view.End());
}

// The registers that took part, as "0:2 1:1-2".
std::string RegistersOf(const std::string& pattern, const std::string& text) {
  CompiledPattern compiled = Compiled(pattern);
  TextView view(text);
  MatchRegisters registers;
  if (MatchAt(compiled, view, BytePos(0), view.End(), &registers) < 0) return "none";
  std::string out;
  for (int r = 0; r < MatchRegisters::kCount; ++r)
    if (registers.end[r] >= 0)
      out += (out.empty() ? "" : " ") + std::to_string(r) + ":" + std::to_string(registers.start[r]) + "-" +
             std::to_string(registers.end[r]);
  return out;
}

TEST(RegexMatcher, MatchesAtTheGivenPlaceOnly) {
  struct {
    const char* pattern;
    const char* text;
    int position, length;
  } const kRows[] = {
      {"", "abc", 1, 0},           {"*a", "*a", 0, 2},           {"a**", "aaa", 0, 3},
      {"a+?", "b", 0, 0},          {"ab+", "abab", 0, 4},        {"ab?", "ab", 0, 2},
      {"ab?", "ac", 0, 0},         {"ab*", "abbb", 0, 4},        {"[]x]", "]", 0, 1},
      {"[]x]", "x", 0, 1},         {"[z-a]", "m", 0, -1},        {"[^z-a]", "m", 0, 1},
      {"\\1", "1", 0, 1},          {"\\(a\\1\\)", "a1", 0, 2},   {"a$b", "a$b", 0, 3},
      {".", "\r", 0, -1},          {".", "\n", 0, -1},           {".*", "ab\r\nc", 0, 2},
      {"[^x]*", "ab\r\ncx", 0, 5}, {"\\<if\\>", "(if)", 1, 2},   {"\\<if\\>", "ifdef", 0, -1},
      {"\\<if\\>", "elif", 2, -1}, {"\\<if\\>", "if", 0, 2},     {"\\>", "a", 1, 0},
      {"\\<", "a", 1, -1},         {"^b", "a\nb", 2, 1},         {"^b", "a\rb", 2, -1},
      {"a$", "a\r\n", 0, 1},       {"a$", "a\n", 0, -1},         {"a$", "a", 0, 1},
      {"\\(a*\\)a", "aaa", 0, -1},  // the loop keeps all it took
      {"a*a", "aaa", 0, 3},        {"\\(ab*\\)c", "abbc", 0, 4}, {"x?", "", 0, 0},
      {"a", "a", 1, -1},
  };
  for (auto& row : kRows) EXPECT_EQ(Match(row.pattern, row.text, row.position), row.length) << row.pattern;
}

TEST(RegexMatcher, FillsTheRegisters) {
  struct {
    const char* pattern;
    const char* text;
    const char* registers;
  } const kRows[] = {
      {"\\(ab\\)*", "ababab", "0:0-6 1:0-6"},
      {"x\\(ab\\)*", "xy", "0:0-1"},
      {"\\([a-z]+\\)_\\([a-z]+\\)", "ab_cd", "0:0-5 1:0-2 2:3-5"},
      {"\\(.\\)\\(.\\)\\2\\1", "abba", "0:0-4 1:0-1 2:1-2"},
      {"\\([a-z]+\\) \\1", "the the", "0:0-7 1:0-3"},
      {"\\(\\)\\1x", "x", "0:0-1 1:0-0"},
      {"\\(\\(a\\)b\\)*a", "aba", "0:0-3 1:0-2 2:2-3"},  // the second round wrote register 2 before it failed
      {"\\(\\(a\\)b\\)*", "abx", "0:0-2 1:0-2 2:2-1"},   // or began to
      {"\\(a\\)?\\1", "aa", "0:0-2 1:0-1"},
      {"\\(a\\)?\\1", "b", "none"},
  };
  for (auto& row : kRows) EXPECT_EQ(RegistersOf(row.pattern, row.text), row.registers) << row.pattern;
}

TEST(RegexMatcher, LeavesTheRegistersAloneWithoutAMatch) {
  CompiledPattern compiled = Compiled("b");
  MatchRegisters registers;
  registers.start[3] = 7;
  EXPECT_EQ(MatchAt(compiled, TextView("a"), BytePos(0), BytePos(1), &registers), kNoMatch);
  EXPECT_EQ(registers.start[3], 7);
}

TEST(RegexMatcher, TellsTextFromLeftovers) {
  MatchRegisters registers;
  EXPECT_FALSE(registers.Range(1));
  registers.start[1] = 5;
  registers.end[1] = 3;
  EXPECT_FALSE(registers.Range(1));
  registers.end[1] = 5;
  EXPECT_EQ(registers.Range(1), (TextRange{BytePos(5), BytePos(5)}));
}

TEST(RegexMatcher, FoldsTextAndBackReferences) {
  CompiledPattern compiled = Compiled("\\(abc[x-z]\\)\\1", true);
  std::string text = "aBcYAbCy";
  EXPECT_EQ(MatchAt(compiled, TextView(text), BytePos(0), BytePos(8)), 8);
  compiled = Compiled("\xE9", true);
  EXPECT_EQ(MatchAt(compiled, TextView("\xC9"), BytePos(0), BytePos(1)), kNoMatch);
}

TEST(RegexMatcher, ConsumesNothingAtStopButLooksBeyond) {
  CompiledPattern compiled = Compiled("a*");
  EXPECT_EQ(MatchAt(compiled, TextView("aaaa"), BytePos(0), BytePos(2)), 2);
  compiled = Compiled("aa$");
  EXPECT_EQ(MatchAt(compiled, TextView("aaaa"), BytePos(0), BytePos(2)), kNoMatch);
  EXPECT_EQ(MatchAt(compiled, TextView("aa\ra"), BytePos(0), BytePos(2)), 2);
}

TEST(RegexMatcher, RewritesEachLoopOnce) {
  struct {
    const char* pattern;
    const char* text;
    int at, opcode;
  } const kRows[] = {
      {"a*", "aa", 6, 6},     {"a*b", "ab", 6, 6},      {"a*ab", "ab", 6, 4},     {"a*$", "a", 6, 6},
      {"[ab]*c", "a", 18, 6}, {"[ab]*b", "a", 18, 4},   {"[^b]*b", "a", 18, 6},   {"[^b]*c", "a", 18, 4},
      {".*x", "a", 4, 4},     {"\\(a*\\)b", "a", 8, 6}, {"\\(a*\\)a", "a", 8, 6}, {"a*.", "a", 6, 4},
      {"a*b", "b", 6, 7},
  };
  for (auto& row : kRows) {
    CompiledPattern compiled = Compiled(row.pattern);
    std::string text = row.text;
    (void)MatchAt(compiled, TextView(text), BytePos(0), BytePos(static_cast<int>(text.size())));
    EXPECT_EQ(compiled.code[row.at], row.opcode) << row.pattern;
  }
}

TEST(RegexMatcher, StopsWhenTheFailureStackIsFull) {
  EXPECT_EQ(Match(".*x", std::string(4095, 'a')), kNoMatch);
  EXPECT_EQ(Match(".*x", std::string(4096, 'a')), kMatcherOverflow);
  EXPECT_EQ(Match(".*x", std::string(4094, 'a') + "x"), 4095);
  EXPECT_EQ(Match("a*b", std::string(100000, 'a') + "b"), 100001);  // forgets its points as it goes
  EXPECT_EQ(Match("\\(\\)*", "abc"), kMatcherOverflow);
  EXPECT_EQ(Match("\\(a*\\)*", "abc"), kMatcherOverflow);
  EXPECT_EQ(Match("\\(a*\\)+x", "aaab"), kMatcherOverflow);
}

// A dormant point may grow the stack past its limit; the points after it have the room.
TEST(RegexMatcher, LetsDormantPointsGrowTheStack) {
  std::string text(4095, 'a');
  EXPECT_EQ(Match(".*.+x", text), kNoMatch);
}

class Impatient final : public Progress {
 public:
  void Poll() override { throw CYieldException(); }
};

TEST(RegexMatcher, CanBeInterrupted) {
  std::string source;
  for (int i = 0; i < 30; ++i) source += "x?";
  CompiledPattern compiled = Compiled(source + std::string(30, 'x') + "y");
  std::string text(60, 'x');
  Impatient progress;
  auto start = std::chrono::steady_clock::now();
  EXPECT_THROW((void)MatchAt(compiled, TextView(text), BytePos(0), BytePos(60), nullptr, &progress),
               CYieldException);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

}  // namespace
}  // namespace tarrow
