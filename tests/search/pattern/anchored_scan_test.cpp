#include "search/pattern/anchored_scan.h"

#include "search/pattern/regex_compiler.h"
#include "tests/search/pattern/naive_matcher.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <string>

namespace tarrow {
namespace {

CompiledPattern Compiled(const std::string& source) {
  CompiledPattern pattern;
  EXPECT_EQ(CompilePattern(source, pattern), PatternError::kNone) << source;
  return pattern;
}

std::string FindAll(const std::string& source, const std::string& buffer) {
  CompiledPattern pattern = Compiled(source);
  std::string out;
  std::size_t at = 0;
  while (auto match = FindAnchoredMatch(pattern, buffer, at, buffer.size())) {
    out += buffer.substr(match->at, match->length) + "|";
    at = match->at + match->length;
  }
  return out;
}

TEST(AnchoredScan, TreatsEachPlaceAsTheStartOfTheText) {
  struct {
    const char* pattern;
    const char* buffer;
    const char* found;
  } const kRows[] = {
      {"[ -~][ -~][ -~][ -~]+",
       "abc\x01"
       "abcd\x01"
       "ab\x01"
       "12345",
       "abcd|12345|"},
      {"^ab", "xabab", "ab|ab|"},
      {"\\<b", "abb", "b|b|"},
      {"x*", "axxb", "xx|"},
      {"a*\\<ab", "aab", "ab|"},
      {"\\(a*\\)\\(^b\\)", "aab", "b|"},
      {"\\(\\)*a", "aaa", ""},  // runs out of room at each place
      {"b$", "bab", "b|"},
  };
  for (auto& row : kRows) EXPECT_EQ(FindAll(row.pattern, row.buffer), row.found) << row.pattern;
}

TEST(AnchoredScan, KeepsToItsRange) {
  CompiledPattern pattern = Compiled("[a-z][a-z]+");
  EXPECT_FALSE(FindAnchoredMatch(pattern, "..ab", 0, 2));
  auto match = FindAnchoredMatch(pattern, "..abc", 0, 3);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->at, 2u);
  EXPECT_EQ(match->length, 3u);
}

TEST(AnchoredScan, AgreesWithTryingEveryPlace) {
  RandomPatterns random(42);
  for (int i = 0; i < 6000; ++i) {
    CompiledPattern pattern;
    pattern.foldCase = random.Below(3) == 0;
    std::string source = random.Pattern(), text = random.Text();
    if (CompilePattern(source, pattern) != PatternError::kNone) continue;
    CompiledPattern naivePattern = pattern;
    std::size_t from = static_cast<std::size_t>(random.Below(static_cast<int>(text.size()) + 1));
    auto match = FindAnchoredMatch(pattern, text, from, text.size());

    naive::Limits limits;
    int length = -1;
    std::size_t place = from;
    for (; place < text.size() && length <= 0 && length != naive::kOutOfSteps; ++place) {
      std::string rest = text.substr(place);
      MatchRegisters registers;
      length = naive::MatchAt(naivePattern, rest, 0, static_cast<int>(rest.size()), registers, limits);
    }
    if (length == naive::kOutOfSteps) continue;
    ASSERT_EQ(match.has_value(), length > 0) << Quoted(source) << " in " << Quoted(text) << " from " << from;
    if (!match) continue;
    ASSERT_EQ(match->at, place - 1) << Quoted(source) << " in " << Quoted(text);
    ASSERT_EQ(match->length, static_cast<std::size_t>(length)) << Quoted(source) << " in " << Quoted(text);
  }
}

}  // namespace
}  // namespace tarrow
