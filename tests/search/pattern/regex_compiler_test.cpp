#include "search/pattern/regex_compiler.h"

#include "search/pattern/find_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace tarrow {
namespace {

// Byte code as a table row writes it: numbers, and characters for literals.
using Bytes = std::vector<int>;

struct CodeCase {
  const char* pattern;
  Bytes code;
};

const CodeCase kCodes[] = {
    {"", {}},
    {"a", {1, 1, 'a'}},
    {"abc", {1, 3, 'a', 'b', 'c'}},
    {".", {9}},
    {"a*", {5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a**", {5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a+?", {5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a?+", {5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a+", {8, 3, 0, 5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a++", {8, 3, 0, 5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF}},
    {"a?", {5, 3, 0, 1, 1, 'a'}},
    {"a??", {5, 3, 0, 1, 1, 'a'}},
    {"ab*", {1, 1, 'a', 5, 6, 0, 1, 1, 'b', 7, 0xF7, 0xFF}},
    {"ab+", {8, 3, 0, 5, 7, 0, 1, 2, 'a', 'b', 7, 0xF6, 0xFF}},
    {"ab?", {5, 4, 0, 1, 2, 'a', 'b'}},
    {"a*b", {5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF, 1, 1, 'b'}},
    {"*a", {1, 2, '*', 'a'}},
    {"+a", {1, 2, '+', 'a'}},
    {"?a", {1, 2, '?', 'a'}},
    {"**", {5, 6, 0, 1, 1, '*', 7, 0xF7, 0xFF}},
    {"^a", {2, 1, 1, 'a'}},
    {"^*a", {2, 1, 2, '*', 'a'}},
    {"^^a", {2, 2, 1, 1, 'a'}},
    {"\\<^a", {18, 2, 1, 1, 'a'}},
    {"a^b", {1, 3, 'a', '^', 'b'}},
    {"ab^cd", {1, 1, 'a', 1, 4, 'b', '^', 'c', 'd'}},
    {"a^*", {1, 1, 'a', 5, 6, 0, 1, 1, '^', 7, 0xF7, 0xFF}},
    {"a\n^b", {1, 1, 'a', 1, 1, '\n', 2, 1, 1, 'b'}},
    {"a$", {1, 1, 'a', 3}},
    {"a$b", {1, 3, 'a', '$', 'b'}},
    {"$", {3}},
    {"$\n", {3, 1, 1, '\n'}},
    {"a$*", {1, 1, 'a', 5, 6, 0, 1, 1, '$', 7, 0xF7, 0xFF}},
    {"\\(a$\\)", {12, 1, 1, 1, 'a', 3, 13, 1}},
    {"\\(^a\\)", {12, 1, 2, 1, 1, 'a', 13, 1}},
    {"\\(a\\)^", {12, 1, 1, 1, 'a', 13, 1, 1, 1, '^'}},
    {"a|b", {1, 3, 'a', '|', 'b'}},
    {"a\\|b", {1, 3, 'a', '|', 'b'}},
    {"a{2}", {1, 4, 'a', '{', '2', '}'}},
    {"\\.\\*\\[\\\\\\n", {1, 5, '.', '*', '[', '\\', 'n'}},
    {"\\t", {1, 1, 9}},
    {"\\0", {1, 1, '0'}},
    {"\\1", {1, 1, '1'}},
    {"\\(a\\1\\)", {12, 1, 1, 2, 'a', '1', 13, 1}},
    {"\\(a\\)\\1", {12, 1, 1, 1, 'a', 13, 1, 14, 1}},
    {"\\(a\\)\\2", {12, 1, 1, 1, 'a', 13, 1, 1, 1, '2'}},
    {"\\(ab\\)*", {12, 1, 5, 9, 0, 1, 2, 'a', 'b', 13, 1, 7, 0xF4, 0xFF}},
    {"\\(a\\)\\1*", {12, 1, 1, 1, 'a', 13, 1, 5, 5, 0, 14, 1, 7, 0xF8, 0xFF}},
    {"\\(\\)*", {12, 1, 5, 5, 0, 13, 1, 7, 0xF8, 0xFF}},
    {"\\<if\\>", {18, 1, 2, 'i', 'f', 19}},
    {"a\\<*", {5, 7, 0, 1, 1, 'a', 18, 7, 0xF6, 0xFF}},
    {"a*\\>*", {5, 13, 0, 5, 6, 0, 1, 1, 'a', 7, 0xF7, 0xFF, 19, 7, 0xF0, 0xFF}},
    {"[a]", {10, 13, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}},
    {"[]x]", {10, 16, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x20, 0, 0, 0, 1}},
    {"[^]]", {11, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x20}},
    {"[z-a]", {10, 0}},
    {"[^z-a]", {11, 0}},
    {"[\\t]", {10, 2, 0, 2}},
    {"[\\n]", {10, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x10, 0, 0x40}},
    {"[0-2]", {10, 7, 0, 0, 0, 0, 0, 0, 7}},
    {"[-0]", {10, 7, 0, 0, 0, 0, 0, 0x20, 1}},
    {"[0-]", {10, 7, 0, 0, 0, 0, 0, 0x20, 1}},
    {"[0-1-2]", {10, 7, 0, 0, 0, 0, 0, 0x20, 7}},
    {"[\\t-\x0B]", {10, 2, 0, 0x0E}},
    {"[]-^]", {10, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x60}},
    {"a[b]c", {1, 1, 'a', 10, 13, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 1, 1, 'c'}},
};

Bytes Compile(const std::string& pattern, bool foldCase = false) {
  CompiledPattern compiled;
  compiled.foldCase = foldCase;
  EXPECT_EQ(CompilePattern(pattern, compiled), PatternError::kNone) << pattern;
  return {compiled.code.begin(), compiled.code.end()};
}

TEST(RegexCompiler, GivesTheCode) {
  for (const CodeCase& row : kCodes) EXPECT_EQ(Compile(row.pattern), row.code) << row.pattern;
}

TEST(RegexCompiler, FoldsWhatItReadsButNotBehindABackslash) {
  EXPECT_EQ(Compile("aBc\xE9", true), (Bytes{1, 4, 'A', 'B', 'C', 0xE9}));
  EXPECT_EQ(Compile("\\t", true), (Bytes{1, 1, 9}));
  EXPECT_EQ(Compile("\\T", true), (Bytes{1, 1, 'T'}));
  EXPECT_EQ(Compile("\\n", true), (Bytes{1, 1, 'N'}));
  EXPECT_EQ(Compile("[b-d]", true), Compile("[B-D]"));
  EXPECT_EQ(Compile("[Z-a]", true), (Bytes{10, 0}));
  EXPECT_EQ(Compile("[\\T]", true), Compile("[T\\\\]"));
}

TEST(RegexCompiler, StartsANewExactAfter127Literals) {
  Bytes code = Compile(std::string(130, 'x'));
  ASSERT_EQ(code.size(), 2u + 127 + 2 + 3);
  EXPECT_EQ(code[1], 127);
  EXPECT_EQ(code[2 + 127], 1);
  EXPECT_EQ(code[2 + 127 + 1], 3);
}

TEST(RegexCompiler, CapturesNineGroupsOnly) {
  std::string nine;
  for (int i = 0; i < 9; ++i) nine += "\\(a\\)";
  Bytes code = Compile(nine);
  Bytes tenth = Compile(nine + "\\(b\\)\\9");
  EXPECT_EQ(Bytes(tenth.begin() + static_cast<int>(code.size()), tenth.end()), (Bytes{1, 1, 'b', 14, 9}));

  // The literals of an uncaptured group go on behind it, yet a closure repeats the whole group.
  tenth = Compile(nine + "\\(.b\\)c+");
  EXPECT_EQ(Bytes(tenth.begin() + static_cast<int>(code.size()), tenth.end()),
            (Bytes{8, 3, 0, 5, 8, 0, 9, 1, 2, 'b', 'c', 7, 0xF5, 0xFF}));
}

TEST(RegexCompiler, NotesTheAnchors) {
  CompiledPattern compiled;
  struct {
    const char* pattern;
    bool lineStart, lineEnd;
  } const kRows[] = {{"a", false, false},
                     {"^a", true, false},
                     {"a$", false, true},
                     {"a^$b", false, false},
                     {"\\(^a$\\)", true, true}};
  for (auto& row : kRows) {
    ASSERT_EQ(CompilePattern(row.pattern, compiled), PatternError::kNone);
    EXPECT_EQ(compiled.hasLineStart, row.lineStart) << row.pattern;
    EXPECT_EQ(compiled.hasLineEnd, row.lineEnd) << row.pattern;
  }
}

TEST(RegexCompiler, RefusesWithTheRightNumber) {
  struct {
    std::string pattern;
    int error, message;
  } const kRows[] = {
      {"[a", 2, 143},
      {"[", 2, 143},
      {"[]", 2, 143},
      {"[^", 2, 143},
      {"[a-", 2, 143},
      {"[a\\", 2, 143},
      {"abc\\", 2, 143},
      {"\\(a", 4, 145},
      {"\\(\\(a\\)", 4, 145},
      {"a\\)", 5, 146},
      {"\\(a\\)\\)", 5, 146},
      {"\\(\\(\\(\\(\\(\\(\\(\\(\\(\\(\\(", 3, 144},
      {"\\(\\(\\(\\(\\(\\(\\(\\(\\(\\(", 4, 145},
      {std::string(20000, 'x'), 3, 144},
  };
  for (auto& row : kRows) {
    CompiledPattern compiled;
    PatternError error = CompilePattern(row.pattern, compiled);
    EXPECT_EQ(static_cast<int>(error), row.error) << row.pattern.substr(0, 40);
    EXPECT_EQ(PatternErrorMessage(error), row.message);
    EXPECT_TRUE(compiled.code.empty());
  }
}

// Each token but the last may find no less than ten bytes of room.
TEST(RegexCompiler, FillsTheCodeToItsLimit) {
  CompiledPattern compiled;
  std::string dots(16375, '.');
  EXPECT_EQ(CompilePattern(dots, compiled), PatternError::kNone);
  EXPECT_EQ(CompilePattern(dots + ".", compiled), PatternError::kTooComplex);
  dots.resize(16349);
  EXPECT_EQ(CompilePattern(dots + "[a]", compiled), PatternError::kNone);
  EXPECT_EQ(CompilePattern(dots + ".[a]", compiled), PatternError::kTooComplex);
}

TEST(FindPattern, WrapsWholeWordsAndFolds) {
  CompiledPattern compiled;
  ASSERT_EQ(CompileFindPattern("ab", {.matchCase = false, .wholeWord = true}, compiled), PatternError::kNone);
  EXPECT_EQ(Bytes(compiled.code.begin(), compiled.code.end()), (Bytes{18, 1, 2, 'A', 'B', 19}));
  EXPECT_TRUE(compiled.mapValid);
  EXPECT_TRUE(compiled.firstCharMap['A']);
  EXPECT_FALSE(compiled.firstCharMap['a']);
  EXPECT_EQ(CompileFindPattern("a\\", {}, compiled), PatternError::kInvalid);
  ASSERT_EQ(CompileFindPattern("ab", {}, compiled), PatternError::kNone);
  EXPECT_FALSE(compiled.foldCase);
}

}  // namespace
}  // namespace tarrow
