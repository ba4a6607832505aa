#include "search/find/find_text.h"

#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {

namespace {

// A user who answers all restart questions the same way and remembers what was said.
class Answers final : public FindDialogue {
 public:
  explicit Answers(bool restart) : restart_(restart) {}

  bool ConfirmRestart(int message) override {
    asked.push_back(message);
    return restart_;
  }
  void Complain(int message) override { told.push_back(message); }

  std::vector<int> asked;
  std::vector<int> told;

 private:
  bool restart_;
};

TextRange At(int start, int end) {
  return {BytePos(start), BytePos(end)};
}

FindState StateOf(std::string pattern, bool forward = true) {
  FindState state;
  state.pattern = std::move(pattern);
  state.searchForward = forward;
  return state;
}

struct FindRow {
  const char* name;
  const char* pattern;
  bool forward;
  const char* text;
  TextRange selection;
  std::optional<TextRange> found;
  std::vector<int> asked;
};

const FindRow kRows[] = {
    {"from the end of the selection", "ab", true, "ab ab ab", At(0, 2), At(3, 5), {}},
    {"from the start without a question", "x", true, "ab", At(0, 0), std::nullopt, {}},
    {"restarts from the start", "ab", true, "ab cd", At(2, 2), At(0, 2), {kTextRestartFromStart}},
    {"restarts and finds nothing", "x", true, "ab cd", At(2, 2), std::nullopt, {kTextRestartFromStart}},
    {"backwards", "ab", false, "ab ab ab", At(6, 8), At(3, 5), {}},
    {"backwards onto the first character", "a", false, "aa", At(1, 2), At(0, 1), {}},
    {"backwards from the start restarts", "ab", false, "ab ab", At(0, 2), At(3, 5), {kTextRestartFromEnd}},
    {"backwards from the very end does not ask", "x", false, "abc", At(3, 3), std::nullopt, {}},
    {"a line start moves on from a line start", "^", true, "a\r\nb\r\nc", At(3, 3), At(6, 6), {}},
    {"a line start moves on from the start of the text", "^", true, "a\r\nb", At(0, 0), At(3, 3), {}},
    {"a line end moves on from a line end", "$", true, "a\r\nb\r\nc", At(1, 1), At(4, 4), {}},
    {"a pattern is no plain text", "a.b", true, "axb", At(0, 0), At(0, 3), {}},
    {"nothing in an empty text", "a", true, "", At(0, 0), std::nullopt, {}},
    {"nothing in an empty text backwards", "a", false, "", At(0, 0), std::nullopt, {kTextRestartFromEnd}},
};

}  // namespace

TEST(FindText, FindsWhereItShould) {
  for (const FindRow& row : kRows) {
    std::string_view text = row.text;
    for (std::size_t gap = 0; gap <= text.size(); ++gap) {
      FindState state = StateOf(row.pattern, row.forward);
      Answers user(true);
      TextView view(text.substr(0, gap), text.substr(gap));
      EXPECT_EQ(FindText(state, view, row.selection, Charset(), user), row.found) << row.name;
      EXPECT_EQ(user.asked, row.asked) << row.name;
      EXPECT_EQ(user.told.empty(), row.found.has_value()) << row.name;
    }
  }
}

TEST(FindText, TellsThatNothingIsThereOnlyWhenAllWasSearched) {
  FindState state = StateOf("x");
  Answers refuses(false);
  EXPECT_FALSE(FindText(state, TextView("ab"), At(1, 1), Charset(), refuses));
  EXPECT_TRUE(refuses.told.empty());
  Answers agrees(true);
  EXPECT_FALSE(FindText(state, TextView("ab"), At(1, 1), Charset(), agrees));
  EXPECT_EQ(agrees.told, std::vector<int>{kTextNotFound});
}

TEST(FindText, ReportsABadPatternEachTime) {
  FindState state = StateOf("a\\(");
  for (int round = 0; round < 2; ++round) {
    Answers user(true);
    EXPECT_FALSE(FindText(state, TextView("a"), At(0, 0), Charset(), user));
    EXPECT_EQ(user.told, std::vector<int>{kTextUnmatchedOpen});
  }
}

TEST(FindText, KeepsTheRegistersOfTheLastMatch) {
  FindState state = StateOf("\\(b\\)c");
  Answers user(false);
  ASSERT_TRUE(FindText(state, TextView("abc"), At(0, 0), Charset(), user));
  EXPECT_FALSE(FindText(state, TextView("abc"), At(3, 3), Charset(), user));
  EXPECT_EQ(state.registers.Range(1), At(1, 2));
}

TEST(FindText, PutsThePatternIntoTheCharacterSetOfTheText) {
  FindState state = StateOf("é");
  Answers user(false);
  Charset western{WesternCodePage()};
  EXPECT_EQ(FindText(state, TextView("xé"), At(0, 0), Charset(), user), At(1, 3));
  EXPECT_EQ(FindText(state, TextView("x\xE9"), At(0, 0), western, user), At(1, 2));
  EXPECT_EQ(FindText(state, TextView("xé"), At(0, 0), Charset(), user), At(1, 3));
}

TEST(FindText, KnowsTheCharactersOfTheText) {
  Answers user(false);
  Charset western{WesternCodePage()};
  FindState word = StateOf("café"), any = StateOf("."), fold = StateOf("É");
  word.SetOptions(true, true);
  fold.SetOptions(false, false);
  EXPECT_EQ(FindText(word, TextView("cafés café"), At(0, 0), Charset(), user), At(7, 12));
  EXPECT_EQ(FindText(word, TextView("caf\xE9s caf\xE9"), At(0, 0), western, user), At(6, 10));
  EXPECT_EQ(FindText(any, TextView("a€"), At(1, 1), Charset(), user), At(1, 4));
  EXPECT_EQ(FindText(any, TextView("a"), At(0, 0), Charset(), user), At(0, 1));
  EXPECT_EQ(any.compiledFor, FindState::For::kBytes) << "nothing in the text asks for more";
  EXPECT_EQ(FindText(fold, TextView("aé"), At(0, 0), Charset(), user), At(1, 3));
  EXPECT_EQ(FindText(fold, TextView("a\xE9"), At(0, 0), western, user), At(1, 2));
  any.searchForward = false;
  EXPECT_EQ(FindText(any, TextView("a€b"), At(4, 5), Charset(), user), At(1, 4));
}

TEST(FindTextWithin, KeepsTheWholeMatchInTheRange) {
  FindState state = StateOf("a+");
  Answers user(true);
  TextView text("aaxaaaa");
  EXPECT_EQ(FindTextWithin(state, text, At(1, 5), true, Charset(), user), At(1, 2));
  EXPECT_EQ(FindTextWithin(state, text, At(2, 5), false, Charset(), user), At(3, 5));
  EXPECT_EQ(FindTextWithin(state, text, At(5, 5), false, Charset(), user), std::nullopt);
  EXPECT_TRUE(user.asked.empty());
  EXPECT_EQ(user.told, std::vector<int>{kTextNotFound});
}

TEST(FindTextWithin, MayMatchAtTheStartOfAFreshRange) {
  FindState state = StateOf("^");
  Answers user(true);
  TextView text("a\r\nb\r\nc");
  EXPECT_EQ(FindTextWithin(state, text, At(3, 8), true, Charset(), user), At(3, 3));
  EXPECT_EQ(FindTextWithin(state, text, At(3, 8), false, Charset(), user), At(6, 6));
}

TEST(FindText, FindsNothingForACharacterThatTheTextCannotHold) {
  FindState state = StateOf("ж");
  Answers user(false);
  EXPECT_FALSE(FindText(state, TextView("?\xE9"), At(0, 0), Charset(WesternCodePage()), user));
  EXPECT_EQ(user.told, std::vector<int>{kTextNotFound});
}

TEST(TakeSelectionAsPattern, TakesALineWithoutTheBlanksAtItsEnd) {
  FindState state = StateOf("old");
  state.needsCompile = false;
  std::string_view text = "one two \t\r\nthree";
  EXPECT_FALSE(TakeSelectionAsPattern(state, TextView(text), At(4, 4), Charset())) << "no selection";
  EXPECT_FALSE(TakeSelectionAsPattern(state, TextView(text), At(4, 12), Charset())) << "two lines";
  EXPECT_FALSE(state.needsCompile);
  EXPECT_TRUE(TakeSelectionAsPattern(state, TextView(text), At(4, 9), Charset()));
  EXPECT_EQ(state.pattern, "two");
  EXPECT_TRUE(state.needsCompile);
  EXPECT_FALSE(TakeSelectionAsPattern(state, TextView(text), At(4, 7), Charset())) << "the same again";
}

TEST(FindState, CompilesAgainWhenAnOptionChanges) {
  FindState state = StateOf("a");
  Answers user(false);
  EXPECT_FALSE(FindText(state, TextView("A"), At(0, 0), Charset(), user));
  state.SetOptions(true, false);
  EXPECT_FALSE(state.needsCompile);
  state.SetOptions(false, false);
  EXPECT_TRUE(state.needsCompile);
  EXPECT_TRUE(FindText(state, TextView("A"), At(0, 0), Charset(), user));
  state.SetOptions(false, true);
  EXPECT_FALSE(FindText(state, TextView("Ab"), At(0, 0), Charset(), user));
}

}  // namespace tarrow
