#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

// Steps are done to "0123456789"; one undo must leave `undone`, a second one what the steps left.
struct Step {
  std::int32_t start, end;
  const char* text;
  EditKind kind;
};
struct UndoCase {
  const char* name;
  std::vector<Step> steps;
  const char* undone;
};

constexpr auto kTyping = EditKind::kTyping;
constexpr auto kDeleting = EditKind::kDeleting;
constexpr auto kCommand = EditKind::kCommand;

const UndoCase kCases[] = {
    {"typing is one unit", {{3, 3, "a", kTyping}, {4, 4, "b", kTyping}, {5, 5, "c", kTyping}}, "0123456789"},
    {"typing over a selection", {{3, 6, "a", kTyping}, {4, 4, "b", kTyping}}, "0123456789"},
    {"overtyping", {{3, 4, "a", kTyping}, {4, 5, "b", kTyping}}, "0123456789"},
    {"typing elsewhere", {{3, 3, "a", kTyping}, {8, 8, "b", kTyping}}, "012a3456789"},
    {"typing before what was typed", {{3, 3, "a", kTyping}, {3, 3, "b", kTyping}}, "012a3456789"},
    {"deleting forwards", {{3, 4, "", kDeleting}, {3, 4, "", kDeleting}}, "0123456789"},
    {"deleting backwards", {{3, 4, "", kDeleting}, {2, 3, "", kDeleting}}, "0123456789"},
    {"deleting both ways",
     {{3, 4, "", kDeleting}, {2, 3, "", kDeleting}, {2, 3, "", kDeleting}},
     "0123456789"},
    {"deleting elsewhere", {{3, 4, "", kDeleting}, {7, 8, "", kDeleting}}, "012456789"},
    {"deleting what was typed", {{3, 3, "ab", kTyping}, {4, 5, "", kDeleting}}, "012ab3456789"},
    {"deleting behind a replacement", {{3, 4, "ab", kDeleting}, {3, 4, "", kDeleting}}, "012ab456789"},
    {"a command by itself", {{3, 3, "a", kTyping}, {4, 4, "b", kCommand}}, "012a3456789"},
    {"commands one by one", {{3, 3, "a", kCommand}, {4, 4, "b", kCommand}}, "012a3456789"},
    {"typing after a command", {{3, 3, "a", kCommand}, {4, 4, "b", kTyping}}, "012a3456789"},
};

TEST(Undo, TakesBackOneUnitAndDoesItAgain) {
  for (const UndoCase& c : kCases) {
    TextBuffer buffer = BufferOf("0123456789");
    for (const Step& step : c.steps) buffer.Replace(Range(step.start, step.end), step.text, step.kind);
    std::string changed = buffer.View().Copy();
    for (int again = 0; again < 2; ++again) {
      ASSERT_TRUE(buffer.UndoLast()) << c.name;
      EXPECT_EQ(buffer.View().Copy(), c.undone) << c.name;
      ASSERT_TRUE(buffer.UndoLast()) << c.name;
      EXPECT_EQ(buffer.View().Copy(), changed) << c.name;
    }
  }
}

TEST(Undo, SaysWhereTheTextHasChanged) {
  TextBuffer buffer = BufferOf("0123456789");
  buffer.Replace(Range(2, 5), "x");
  EXPECT_EQ(buffer.UndoLast(), Range(2, 5));
  EXPECT_EQ(buffer.UndoLast(), Range(2, 3));
  EditList edits;
  edits.Add(Range(1, 2), "ab");
  edits.Add(Range(5, 7), "");
  buffer.Apply(edits);
  EXPECT_EQ(buffer.UndoLast(), Range(1, 7));
  EXPECT_EQ(buffer.UndoLast(), Range(1, 6));
}

TEST(Undo, AListIsOneUnitHoweverLong) {
  std::mt19937 random(11);
  for (int round = 0; round < 100; ++round) {
    std::string text = RandomText(random, 400);
    TextBuffer buffer = BufferOf(text);
    EditList edits = RandomEdits(random, buffer.Size());
    if (edits.Empty()) continue;
    buffer.Apply(edits);
    ASSERT_TRUE(buffer.UndoLast());
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, text));
    ASSERT_TRUE(buffer.UndoLast());
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, After(text, edits)));
  }
}

TEST(Undo, ForgetsWhatIsNotToBeUndone) {
  TextBuffer buffer = BufferOf("0123");
  buffer.Replace(Range(0, 1), "a");
  buffer.Replace(Range(2, 2), "b", EditKind::kForgotten);
  EXPECT_FALSE(buffer.CanUndo());
  EXPECT_FALSE(buffer.UndoLast());
  buffer.Replace(Range(0, 1), "c");
  buffer.EmptyUndo();
  EXPECT_FALSE(buffer.UndoLast());
}

TEST(Undo, DoingNothingIsNoUnit) {
  TextBuffer buffer = BufferOf("0123");
  buffer.Replace(Range(1, 1), "a");
  buffer.Replace(Range(2, 2), "");
  buffer.Apply(EditList());
  EXPECT_TRUE(buffer.UndoLast());
  EXPECT_EQ(buffer.View().Copy(), "0123");
}

}  // namespace
}  // namespace tarrow
