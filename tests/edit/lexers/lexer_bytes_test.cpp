// Any bytes: each has exactly one style, no run splits a character, asking for runs changes no state, and a
// line of nothing but signs takes no longer than others.
#include "edit/lexers/lexers.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace tarrow {
namespace {

const Lexer* const kAll[] = {
    &CSourceLexer(), &ResourceLexer(), &MakefileSourceLexer(), &ModuleDefinitionLexer(), &IniLexer(),
    &BatchLexer(),   &MarkdownLexer(), &SearchResultLexer(),   &ComparisonLexer(),       &BuildLogLexer(),
};

constexpr std::string_view kPieces[] = {
    "/*",
    "*/",
    "//",
    "\"",
    "'",
    "\\",
    "R\"",
    "(",
    ")",
    "#",
    "$(",
    "${",
    "}",
    "%",
    "%~",
    "!",
    "^",
    "&",
    "`",
    "``",
    "*",
    "**",
    "_",
    "[",
    "](",
    "<http",
    "<!--",
    "-->",
    ":",
    ": ",
    "=",
    ";",
    "@",
    "rem",
    "if",
    " ",
    "\t",
    "0x",
    "1",
    "e+",
    ".",
    "a",
    "int",
    "L",
    "<",
    ">",
    "~~~",
    "\xC3\xA9",
    "\xE2\x82\xAC",
    "\xEF\xBB\xBF",
    "\xF0\x9F\x98\x80",
    "\xFF",
    std::string_view("\0", 1),
};

std::string RandomLine(std::mt19937& random) {
  std::string line;
  for (unsigned n = random() % 40; n > 0; --n) line += kPieces[random() % std::size(kPieces)];
  return line;
}

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

void ExpectCovers(const StyleRuns& runs, const std::string& line) {
  std::int32_t from = 0;
  Style before{};
  for (const StyleRun& run : runs) {
    ASSERT_LT(from, run.end);
    ASSERT_LT(static_cast<std::size_t>(run.style), kStyleCount);
    ASSERT_TRUE(from == 0 || run.style != before);
    bool splits = static_cast<std::size_t>(run.end) < line.size() &&
                  IsContinuation(line[static_cast<std::size_t>(run.end)]);
    ASSERT_FALSE(splits) << line;
    from = run.end;
    before = run.style;
  }
  ASSERT_EQ(static_cast<std::int32_t>(line.size()), from) << line;
}

TEST(LexerBytes, EveryByteHasOneStyle) {
  std::mt19937 random(7);
  for (const Lexer* lexer : kAll) {
    LexState state = kTextStart;
    for (int i = 0; i < 4000; ++i) {
      std::string line = RandomLine(random);
      StyleRuns runs;
      LexState next = lexer->Lex(line, state, &runs);
      ExpectCovers(runs, line);
      ASSERT_EQ(next, lexer->Lex(line, state, nullptr)) << line;
      state = random() % 4 == 0 ? static_cast<LexState>(random()) : next;
    }
  }
}

TEST(LexerBytes, AMarkAloneHasAStyle) {
  for (const Lexer* lexer : kAll) {
    StyleRuns runs;
    lexer->Lex("\xEF\xBB\xBF", kTextStart, &runs);
    ExpectCovers(runs, "\xEF\xBB\xBF");
  }
}

// A line of one piece, again and again.
TEST(LexerBytes, NoLineTakesLongerThanItsLength) {
  for (const Lexer* lexer : kAll) {
    for (std::string_view piece : kPieces) {
      std::string line;
      while (line.size() < kLexedOfLine) line += piece;
      StyleRuns runs;
      auto start = std::chrono::steady_clock::now();
      for (int i = 0; i < 5; ++i) lexer->Lex(line, kTextStart, &runs);
      auto taken = std::chrono::steady_clock::now() - start;
      // A square would be 268 million steps each time.
      EXPECT_LT(taken, std::chrono::milliseconds(500)) << piece;
    }
  }
}

}  // namespace
}  // namespace tarrow
