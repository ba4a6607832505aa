#include "edit/commands/editing_command.h"

#include "edit/commands/child_flags.h"
#include "edit/text/line_bounds.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace tarrow {

namespace {

std::string RandomText(std::mt19937& random) {
  constexpr std::string_view kPieces[] = {"\r\n", "\r", "\n", " ", "\t", "a",   "B",
                                          "_",    "(",  "}",  "é", "ß",  "\xC3"};
  std::string text;
  for (auto n = random() % 20; n-- > 0;) text += kPieces[random() % std::size(kPieces)];
  return text;
}

TextRange RandomSelection(std::mt19937& random, std::size_t size) {
  BytePos a(static_cast<std::int64_t>(random() % (size + 1))),
      b(static_cast<std::int64_t>(random() % (size + 1)));
  return {std::min(a, b), std::max(a, b)};
}

std::string Apply(std::string text, const EditList& edits) {
  for (std::size_t i = edits.Size(); i-- > 0;)
    text.replace(static_cast<std::size_t>(edits[i].range.start.value),
                 static_cast<std::size_t>(edits[i].range.Length()), edits[i].text);
  return text;
}

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t'; });
  return text;
}

}  // namespace

TEST(EditingCommands, EachStandsOnce) {
  std::set<int> seen;
  for (const EditingCommand& command : EditingCommandTable()) EXPECT_TRUE(seen.insert(command.id).second);
  EXPECT_EQ(FindEditingCommand(kFileSave), nullptr);
  EXPECT_EQ(FindEditingCommand(kEditUpper)->id, kEditUpper);
}

TEST(EditingCommands, AreGreyWhenTheyCannotAct) {
  TextRange caret{BytePos(1), BytePos(1)}, selection{BytePos(1), BytePos(2)};
  auto can = [](CommandId id, TextRange range, std::uint32_t flags) {
    return CanEdit(*FindEditingCommand(id), range, flags);
  };
  EXPECT_FALSE(can(kEditCut, caret, 0));
  EXPECT_TRUE(can(kEditCut, selection, 0));
  EXPECT_FALSE(can(kEditCut, selection, kReadOnly));
  EXPECT_TRUE(can(kEditCopy, selection, kReadOnly));
  EXPECT_FALSE(can(kEditShiftRight, caret, kReadOnly));
  EXPECT_TRUE(can(kEditMoveFwdEnd, caret, kReadOnly));
}

// Whatever the text and wherever the selection: no caret inside a line break or outside the text, and a
// command that is said to change nothing changes nothing.
TEST(EditingCommands, KeepTheirPromisesOnRandomTexts) {
  std::mt19937 random(20240611);
  for (int round = 0; round < 20000; ++round) {
    std::string text = RandomText(random);
    TextRange selection = RandomSelection(random, text.size());
    for (const EditingCommand& command : EditingCommandTable()) {
      if (!command.run) continue;
      Charset charset = random() % 2 ? Charset() : Charset(WesternCodePage());
      EditOutcome outcome = RunEditingCommand(command, {TextView(text), selection, charset, {}});
      std::string edited = Apply(text, outcome.edits);
      TextView after(edited);
      TextRange to = outcome.selection;
      ASSERT_TRUE(BytePos(0) <= to.start && to.start <= to.end && to.end <= after.End())
          << command.id << ": " << text;
      ASSERT_FALSE(InsideLineBreak(after, to.start) || InsideLineBreak(after, to.end)) << command.id;
      ASSERT_TRUE(command.changesText || edited == text) << command.id;
      ASSERT_TRUE(outcome.beep == Beep::kNone || outcome.edits.Empty()) << command.id;
    }
  }
}

// Indentation is written anew by the first shift; from then on to the left and back to the right changes
// nothing, and the same lines stay selected.
TEST(EditingCommands, ShiftsChangeBlanksOnlyAndUndoOneAnother) {
  std::mt19937 random(7);
  auto shift = [](CommandId id, std::string& text, TextRange& selection) {
    EditOutcome outcome =
        RunEditingCommand(*FindEditingCommand(id), {TextView(text), selection, Charset(), {}});
    text = Apply(text, outcome.edits);
    selection = outcome.selection;
  };
  for (int round = 0; round < 20000; ++round) {
    std::string text = RandomText(random), before = WithoutBlanks(text);
    TextRange selection = RandomSelection(random, text.size());
    shift(kEditShiftRight, text, selection);
    ASSERT_EQ(WithoutBlanks(text), before);
    std::string shifted = text;
    shift(kEditShiftLeft, text, selection);
    shift(kEditShiftRight, text, selection);
    ASSERT_EQ(text, shifted);
  }
}

}  // namespace tarrow
