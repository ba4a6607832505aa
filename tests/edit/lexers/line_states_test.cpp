// Whatever is done to a text, in whatever order its lines are settled: in the end its parts are what they are
// in a text that is read anew.
#include "edit/lexers/line_states.h"

#include "edit/lexers/lexers.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tarrow {
namespace {

constexpr std::int64_t kMuch = std::int64_t{1} << 40;  // bytes

using Runs = std::vector<std::vector<StyleRun>>;

Runs AllRuns(const TextBuffer& text, LineStates& states) {
  Runs runs;
  for (LineNo line; line <= text.LastLine(); ++line) {
    const StyleRuns& of = states.RunsOf(text, line);
    runs.emplace_back(of.begin(), of.end());
  }
  return runs;
}

Runs RunsAnew(const TextBuffer& text, const Lexer& lexer) {
  TextBuffer copy;
  copy.Replace({}, text.View().Copy());
  LineStates states;
  states.Reset(copy, &lexer);
  states.Settle(copy, LineStates::kAllLines, kMuch);
  EXPECT_TRUE(states.IsSettled());
  return AllRuns(copy, states);
}

// Pieces that open and close what reaches over lines, in every lexer.
constexpr std::string_view kPieces[] = {
    "/*",          "*/",           "\r\n", "\r\n", "\r\n",  "\"",    "\\",   "\\\r\n",   "R\"x(",
    ")x\"",        "R\"(",         ")\"",  "//",   "'",     "#if",   "\r",   "\n",       "a b",
    "\r\n```\r\n", "\r\n~~~~\r\n", "<!--", "-->",  "^\r\n", "echo ", "rem ", "\xC3\xA9",
};

class RandomEdits {
 public:
  RandomEdits(unsigned seed, TextBuffer& text) : random_(seed), text_(text) {}

  void Make() {
    switch (random_() % 8) {
      case 0:
        (void)text_.UndoLast();
        return;
      case 1:
        return MakeList();
      default:
        TextRange range{Place(), {}};
        range.end = std::min(range.start + static_cast<std::int64_t>(random_() % 3 * 4), text_.End());
        text_.Replace(range, Piece(), random_() % 2 ? EditKind::kTyping : EditKind::kCommand);
    }
  }

  LineRange SomeLines() {
    auto first = static_cast<std::int64_t>(random_() % static_cast<unsigned>(text_.LineCount().value));
    return {first, first + static_cast<std::int64_t>(random_() % 10)};
  }
  std::int64_t SomeBytes() { return static_cast<std::int64_t>(random_() % 30); }
  std::string_view Piece() { return kPieces[random_() % std::size(kPieces)]; }

 private:
  BytePos Place() {
    return BytePos(static_cast<std::int64_t>(random_() % (static_cast<unsigned>(text_.Size()) + 1)));
  }

  void MakeList() {
    EditList edits;
    for (BytePos at = Place(); at < text_.End() && edits.Size() < 5; at += 7)
      edits.Add({at, std::min(at + 2, text_.End())}, Piece());
    text_.Apply(edits);
  }

  std::mt19937 random_;
  TextBuffer& text_;
};

class LineStatesOf : public testing::TestWithParam<const char*> {};

TEST_P(LineStatesOf, AnyEditsAreThoseOfATextReadAnew) {
  const Lexer& lexer = *LexerFor(GetParam());
  for (unsigned seed = 0; seed < 60; ++seed) {
    TextBuffer text;
    LineStates states;
    RandomEdits edits(seed, text);
    for (int i = 0; i < 40; ++i) text.Replace({text.End(), text.End()}, edits.Piece());
    states.Reset(text, &lexer);
    for (int i = 0; i < 40; ++i) {
      edits.Make();
      states.Settle(text, edits.SomeLines(), edits.SomeBytes());
      if (i % 8 != 0) continue;
      states.Settle(text, LineStates::kAllLines, kMuch);
      ASSERT_TRUE(states.IsSettled());
      ASSERT_EQ(RunsAnew(text, lexer), AllRuns(text, states)) << text.View().Copy();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, LineStatesOf,
                         testing::Values("a.cpp", "a.rc", "makefile", "a.def", "a.ini", "a.bat", "a.md"));

class CStates : public testing::Test {
 protected:
  void Start(const std::string& content) {
    text_.Replace({}, content);
    states_.Reset(text_, &CSourceLexer());
  }
  Style StyleAt(std::int64_t line) { return states_.RunsOf(text_, LineNo(line)).begin()->style; }

  TextBuffer text_;
  LineStates states_;
};

std::string Lines(int count, const std::string& line) {
  std::string text;
  for (int i = 0; i < count; ++i) text += line + "\r\n";
  return text;
}

TEST_F(CStates, AChangeIsFollowedNoFurtherThanItReaches) {
  Start(Lines(1000, "int a; /* b */"));
  states_.Settle(text_, LineStates::kAllLines, kMuch);
  text_.Replace({BytePos(3), BytePos(4)}, "  ");
  EXPECT_EQ(LineRange(), states_.Settle(text_, LineStates::kAllLines, 20));
  EXPECT_TRUE(states_.IsSettled());
  text_.Replace({BytePos(0), BytePos(0)}, "/*");
  states_.Settle(text_, LineStates::kAllLines, 20);
  EXPECT_TRUE(states_.IsSettled()) << "the comment ends on its line";
}

TEST_F(CStates, ACommentThatIsOpenedReachesToTheEndBitByBit) {
  Start(Lines(1000, "int a;"));
  states_.Settle(text_, LineStates::kAllLines, kMuch);
  text_.Replace({BytePos(0), BytePos(0)}, "/*");
  EXPECT_EQ((LineRange{1, 4}), states_.Settle(text_, {0, 3}, kMuch));
  EXPECT_EQ(Style::kComment, StyleAt(3));
  EXPECT_EQ(Style::kKeyword, StyleAt(4));
  EXPECT_EQ((LineRange{4, 1001}), states_.Settle(text_, LineStates::kAllLines, kMuch));
  EXPECT_EQ(Style::kComment, StyleAt(999));
}

TEST_F(CStates, AScreenFarDownIsReadFromALittleAbove) {
  Start("/*" + Lines(5000, "int a;") + "*/" + Lines(100, "int /* b") + Lines(100, "c */"));
  states_.Settle(text_, {5100, 5120}, kMuch);
  EXPECT_TRUE(states_.IsSettled({5100, 5120}));
  EXPECT_EQ(Style::kText, StyleAt(5100)) << "nothing is known of what comes before";
  EXPECT_EQ(LineRange(), states_.Settle(text_, {5100, 5120}, kMuch));
  states_.Settle(text_, LineStates::kAllLines, kMuch);
  EXPECT_EQ(Style::kComment, StyleAt(5099));
  EXPECT_EQ(Style::kComment, StyleAt(5100));
  EXPECT_EQ(Style::kText, StyleAt(5101));
}

TEST_F(CStates, WhatLiesFarBehindTheStartOfALineChangesNothing) {
  Start("int a;" + std::string(3 * kLexedOfLine, ' ') + "\r\nint b;");
  states_.Settle(text_, LineStates::kAllLines, kMuch);
  text_.Replace({BytePos(2 * kLexedOfLine), BytePos(2 * kLexedOfLine)}, "/*");
  EXPECT_TRUE(states_.IsSettled());
  text_.Replace({BytePos(8), BytePos(8)}, "/*");
  EXPECT_FALSE(states_.IsSettled());
  EXPECT_EQ((LineRange{1, 2}), states_.Settle(text_, LineStates::kAllLines, kMuch));
}

TEST_F(CStates, WithoutALexerNothingIsKept) {
  Start("/*\r\n*/");
  states_.Reset(text_, nullptr);
  text_.Replace({BytePos(0), BytePos(0)}, "\r\n");
  EXPECT_TRUE(states_.IsSettled());
  EXPECT_EQ(Style::kText, StyleAt(1));
}

TEST_F(CStates, BlanksArePartOfWhatTheyStandBeside) {
  Start("  int  char x \"a\" \"b\" ;");
  StyleRuns expected;
  expected.Add(11, Style::kKeyword);
  expected.Add(14, Style::kText);
  expected.Add(21, Style::kString);
  expected.Add(23, Style::kText);
  const StyleRuns& runs = states_.RunsOf(text_, LineNo(0));
  EXPECT_EQ(std::vector(expected.begin(), expected.end()), std::vector(runs.begin(), runs.end()));
}

}  // namespace
}  // namespace tarrow
