#include "editing_case.h"

#include "edit/commands/auto_indent.h"
#include "edit/commands/child_flags.h"
#include "edit/commands/editing_command.h"
#include "edit/commands/typing.h"
#include "edit/commands/word_movement.h"
#include "edit/text/line_bounds.h"

#include <gtest/gtest.h>

namespace tarrow {

namespace {

// The text as a list of replacements leaves it.
std::string Apply(std::string_view text, const EditList& edits) {
  std::string out;
  std::size_t from = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) {
    auto start = static_cast<std::size_t>(edits[i].range.start.value);
    EXPECT_LE(from, start) << "replacements must ascend";
    out.append(text.substr(from, start - from)).append(edits[i].text);
    from = static_cast<std::size_t>(edits[i].range.end.value);
  }
  return out.append(text.substr(from));
}

EditOutcome ReplaceBy(TextRange range, std::string_view text) {
  EditOutcome outcome;
  outcome.edits.Add(range, text);
  BytePos caret = range.start + static_cast<std::int64_t>(text.size());
  outcome.selection = {caret, caret};
  return outcome;
}

EditOutcome PressEnter(const EditingCase& c, TextView text) {
  if (c.flags & kReadOnly) return EditOutcome::Select(c.before.selection);
  if (!(c.flags & kAlignLines)) return ReplaceBy(c.before.selection, "\r\n");
  return BreakLine(text, c.before.selection, c.indent, c.flags & kIndentBlocks);
}

EditOutcome PressTab(const EditingCase& c, TextView text) {
  if (c.flags & kReadOnly) return EditOutcome::Select(c.before.selection);
  if (!c.indent.expandTabs) return ReplaceBy(c.before.selection, "\t");
  return TypeTabAsSpaces(text, c.before.selection, c.indent.tabSize, c.charset);
}

EditOutcome Type(const EditingCase& c, TextView text, std::string_view typed) {
  auto character = static_cast<unsigned char>(typed[0]);
  TextRange range = c.before.selection;
  if ((c.flags & kReadOnly) && IsRefusedWhenReadOnly(character))
    return EditOutcome::Refuse(range, Beep::kExclamation);
  if (c.flags & kOvertype) range = OvertypeRange(text, range, character, c.charset);
  return ReplaceBy(range, typed);
}

// What the case's command makes of `text`, which holds the bytes of its `before`.
EditOutcome Play(const EditingCase& c, TextView text) {
  TextRange selection = c.before.selection;
  if (c.command == "Enter") return PressEnter(c, text);
  if (c.command == "Tab") return PressTab(c, text);
  if (c.command == "Home") {
    BytePos home = HomePosition(text, selection);
    return EditOutcome::Select({home, home});
  }
  if (c.command == "DoubleClick") return EditOutcome::Select(WordAround(text, selection.start, c.charset));
  if (c.command.starts_with("Type ")) return Type(c, text, std::string_view(c.command).substr(5));
  const EditingCommand* command = FindEditingCommand(CommandIdFromName(c.command));
  if (!command || !command->run) throw std::runtime_error("no such command: " + c.command);
  return RunEditingCommand(*command, {text, selection, c.charset, c.indent});
}

class EditingCases : public testing::TestWithParam<std::filesystem::path> {};

// Each case over the text in one piece and with the gap at every place.
TEST_P(EditingCases, Holds) {
  EditingCase c = ReadEditingCase(GetParam());
  std::string_view text = c.before.text;
  for (std::size_t gap = 0; gap <= text.size(); ++gap) {
    EditOutcome outcome = Play(c, {text.substr(0, gap), text.substr(gap)});
    MarkedText after{Apply(text, outcome.edits), outcome.selection};
    ASSERT_EQ(ShowMarkedText(after), ShowMarkedText(c.after)) << "gap at " << gap;
    ASSERT_EQ(after, c.after) << "gap at " << gap;
    ASSERT_EQ(outcome.beep, c.beep);
  }
}

std::string CaseName(const testing::TestParamInfo<std::filesystem::path>& info) {
  std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
  for (char& c : name)
    if (!isalnum(static_cast<unsigned char>(c))) c = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, EditingCases, testing::ValuesIn(EditingCaseFiles()), CaseName);

}  // namespace

}  // namespace tarrow
