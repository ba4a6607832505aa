#include "search/pattern/pattern_search.h"

#include "base/exceptions.h"
#include "search/pattern/regex_compiler.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarrow {
namespace {

std::int32_t Search(const std::string& pattern, const std::string& text, int start, int range) {
  CompiledPattern compiled;
  EXPECT_EQ(CompilePattern(pattern, compiled), PatternError::kNone) << pattern;
  return SearchPattern(compiled, TextView(text), BytePos(start), range);
}

TEST(PatternSearch, TriesThePlacesOfItsRange) {
  struct {
    const char* pattern;
    const char* text;
    int start, range, found;
  } const kRows[] = {
      {"b", "abcb", 0, 4, 1},
      {"b", "abcb", 2, 2, 3},
      {"b", "abcb", 0, 0, -1},
      {"b", "ab", 0, 1, 1},  // the skip runs out at the end of the range, and that place is tried
      {"a*b", "cab", 0, 1, 1},
      {"x*b", "aab", 0, 1, -1},
      {"", "abc", 1, 2, 1},
      {"", "", 0, 1, 0},
      {"a", "", 0, 1, -1},
      {"$", "abc", 0, 3, 3},  // the same at the end of the text
      {"$", "ab\r\n", 0, 4, 2},
      {"$", "ab\r", 3, 1, 3},
      {"^", "ab\ncd", 1, 4, 3},
      {"x*$", "abc", 0, 3, 3},
      {"b", "abcb", 3, -3, 3},
      {"b", "abcb", 2, -2, 1},
      {"a", "abcb", 3, -3, 0},
      {"a", "abcb", 3, -2, -1},
      {"a", "a", 0, -1, 0},
      {"z", "abcb", 4, -4, -1},
      {"$", "ab", 2, -2, 2},
      {"^", "a\nb", 2, -2, 2},
      {"^", "a\nb", 1, -1, 0},
      {"a", "abc", 4, 1, -1},
      {"c", "abc", 0, 100, 2},
      {"a", "abc", 2, -100, 0},
      {".*x", "", 0, 1, -1},
  };
  for (auto& row : kRows)
    EXPECT_EQ(Search(row.pattern, row.text, row.start, row.range), row.found)
        << row.pattern << " in '" << row.text << "' from " << row.start << " range " << row.range;
}

TEST(PatternSearch, PassesTheOverflowOn) {
  std::string text(5000, 'a');
  EXPECT_EQ(Search(".*x", text + "\r\nx", 0, 5003), kMatcherOverflow);
}

// At place 0 the dormant point of the "+" comes just when the stack is full, grows it, and the attempt fails
// in good order; at place 1 it comes one point earlier, and the points after it find no room.
TEST(PatternSearch, DoesNotSkipAnOverflowThatLuckAvoided) {
  std::string text = std::string(4095, 'a') + "bc";
  CompiledPattern compiled;
  ASSERT_EQ(CompilePattern("a*b?.+y", compiled), PatternError::kNone);
  EXPECT_EQ(MatchAt(compiled, TextView(text), BytePos(0), BytePos(4097)), kNoMatch);
  EXPECT_EQ(MatchAt(compiled, TextView(text), BytePos(1), BytePos(4097)), kMatcherOverflow);
  EXPECT_EQ(SearchPattern(compiled, TextView(text), BytePos(0), 4097), kMatcherOverflow);
}

TEST(PatternSearch, ReadsTwoPiecesAsOne) {
  CompiledPattern compiled;
  ASSERT_EQ(CompilePattern("\\(b+\\)c\\1$", compiled), PatternError::kNone);
  std::string text = "abb bbcbb\r\nc";
  for (std::size_t gap = 0; gap <= text.size(); ++gap) {
    std::string head = text.substr(0, gap), tail = text.substr(gap);
    TextView view(head, tail);
    MatchRegisters registers;
    EXPECT_EQ(SearchPattern(compiled, view, BytePos(0), view.Size(), &registers), 4) << gap;
    EXPECT_EQ(registers.end[0], 9);
    EXPECT_EQ(registers.start[1], 4);
    EXPECT_EQ(registers.end[1], 6);
  }
}

class Impatient final : public Progress {
 public:
  void Poll() override { throw CYieldException(); }
};

// Each of these would take minutes or years, one long attempt or many short ones.
TEST(PatternSearch, CanBeInterruptedWhateverThePattern) {
  std::string manyWays;
  for (int i = 0; i < 30; ++i) manyWays += "x?";
  manyWays += std::string(30, 'x') + "y";
  std::string line(3800, 'x'), lines;
  while (lines.size() < 4'000'000) lines += line + "\r\n";
  std::string flat = std::string(59, 'x') + "\r\n" + std::string(4'000'000, 'x');
  struct {
    std::string pattern;
    const std::string& text;
    int direction;
  } const kRows[] = {
      {manyWays, flat, -1},
      {"\\(.*\\)\\1y", lines, 1},
      {"\\(x*\\)\\1y", flat, 1},
      {".*.*.*.*y", lines, -1},
  };
  for (auto& row : kRows) {
    CompiledPattern compiled;
    ASSERT_EQ(CompilePattern(row.pattern, compiled), PatternError::kNone);
    TextView view(row.text);
    Impatient progress;
    BytePos start = row.direction > 0 ? BytePos(0) : view.End();
    auto began = std::chrono::steady_clock::now();
    EXPECT_THROW((void)SearchPattern(compiled, view, start, row.direction * view.Size(), nullptr, &progress),
                 CYieldException)
        << row.pattern;
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(2)) << row.pattern;
  }
}

// Counts the polls and stops the search after a second.
class PollCounter final : public Progress {
 public:
  void Poll() override {
    ++count_;
    if (Elapsed() > std::chrono::seconds(1)) throw CYieldException();
  }
  std::chrono::steady_clock::duration Elapsed() const { return std::chrono::steady_clock::now() - began_; }
  bool IsOften() const { return count_ >= Elapsed() / std::chrono::milliseconds(500); }

 private:
  std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
  int count_ = 0;
};

// What makes each of them slow is something else: long comparisons, many literals or lines that lead nowhere,
// much code without a loop. Any of them went without a poll for seconds.
TEST(PatternSearch, PollsWhereverTheTimeGoes) {
  std::string letters(16'000'000, 'x'), lines(16'000'000, '\n'), manyDots(16000, '.');
  std::string half(5'000'000, 'x'), twice = half + "b" + half + half, manyWays;
  for (int i = 0; i < 20; ++i) manyWays += ".?";
  struct {
    std::string pattern;
    const std::string& text;
  } const kRows[] = {
      {"\\(x*\\)b" + manyWays + "\\1y", twice},
      {manyDots + "y", letters},
      {"[0-9]x", letters},
      {"[0-9]+x", letters},
      {"^[a-c]", lines},
  };
  for (auto& row : kRows) {
    CompiledPattern compiled;
    ASSERT_EQ(CompilePattern(row.pattern, compiled), PatternError::kNone);
    PollCounter progress;
    try {
      EXPECT_LT(SearchPattern(compiled, TextView(row.text), BytePos(0), 16'000'000, nullptr, &progress), 0);
    } catch (const CYieldException&) {
    }
    EXPECT_TRUE(progress.IsOften()) << row.pattern.substr(0, 20);
  }
}

// A text of many lines, or of many matches, is searched with many short searches; they poll like a long one.
TEST(PatternSearch, ManyShortSearchesPollLikeALongOne) {
  CompiledPattern compiled;
  ASSERT_EQ(CompilePattern("\\(x*\\)*y", compiled), PatternError::kNone);
  std::string line(200, 'x');
  Impatient progress;
  auto searchForLong = [&] {
    for (auto began = std::chrono::steady_clock::now();
         std::chrono::steady_clock::now() - began < std::chrono::seconds(2);)
      EXPECT_LT(SearchPattern(compiled, TextView(line), BytePos(0), 200, nullptr, &progress), 0);
  };
  EXPECT_THROW(searchForLong(), CYieldException);
}

}  // namespace
}  // namespace tarrow
