#include "search/find/find_commands.h"

#include "resources/resource.h"
#include "tests/edit/commands/edit_fixture.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class FindCommandsTest : public testing::Test {
 protected:
  FindCommandsTest() { program_.documents.activeText = &edit_.control; }

  std::string Run(UINT id, std::string_view before) {
    edit_.SetMarked(before);
    EXPECT_TRUE(Run(id));
    return edit_.Marked();
  }
  bool Run(UINT id) {
    LRESULT result = 0;
    return find_.RunCommand(id, 0, nullptr, result);
  }
  bool IsEnabled(UINT id) const {
    CommandState state;
    return find_.QueryCommand(id, state) && state.enabled;
  }

  HWND Dialog() const { return find_.Dialog() ? find_.Dialog()->Handle() : nullptr; }
  void SetField(int id, const wchar_t* text) { ::SetDlgItemTextW(Dialog(), id, text); }
  void Click(int id) { ::SendMessageW(::GetDlgItem(Dialog(), id), BM_CLICK, 0, 0); }

  DocumentProgram program_;
  EditFixture edit_{program_};
  FindCommands find_{program_.frame,  program_.documents, program_.messages,
                     program_.status, program_.waiting,   program_.help};
};

// The dialog sends its notifications to the frame, which passes them on.
class FindDialogTest : public FindCommandsTest {
 protected:
  void SetUp() override { program_.frame.AddTarget(find_); }
  void TearDown() override { find_.CloseDialog(); }
};

TEST_F(FindCommandsTest, FindsTheSelectionAsAPattern) {
  EXPECT_EQ(Run(kSearchFindNext, "«a.b» a.b axb"), "a.b «a.b» axb");
  EXPECT_TRUE(PumpUntil([&] { return edit_.caretMoves > 0; }));
  EXPECT_TRUE(Run(kSearchFindNext));
  EXPECT_EQ(edit_.Marked(), "a.b a.b «axb»");
  EXPECT_TRUE(Run(kSearchFindPrev));
  EXPECT_EQ(edit_.Marked(), "a.b «a.b» axb") << "the pattern is still a.b";
  EXPECT_TRUE(program_.messages.boxes.empty());
  EXPECT_EQ(program_.waiting.waits, 0);
}

// What the search itself has selected is no new pattern; the same selection made after a change is one.
TEST_F(FindCommandsTest, KeepsThePatternWhileItsMatchIsSelected) {
  Run(kSearchFindNext, "«a.b» axb ayb axb");
  EXPECT_TRUE(Run(kSearchFindNext));
  EXPECT_EQ(edit_.Marked(), "a.b axb «ayb» axb");
  EXPECT_TRUE(Run(kSearchFindPrev));
  EXPECT_EQ(find_.State().pattern, "a.b");
  EXPECT_EQ(edit_.Marked(), "a.b «axb» ayb axb");
  TextRange match = edit_.control.Selection();
  edit_.control.Replace({BytePos(0), BytePos(0)}, "");
  edit_.control.Replace({BytePos(15), BytePos(15)}, "!");
  edit_.control.Select(match);
  EXPECT_TRUE(Run(kSearchFindNext));
  EXPECT_EQ(find_.State().pattern, "axb");
  EXPECT_EQ(edit_.Marked(), "a.b axb ayb «axb»!");
}

TEST_F(FindCommandsTest, ShowsTheMatchWithAQuarterOfTheViewAboveAndBelow) {
  std::string lines;
  for (int i = 0; i < 400; ++i) lines += i == 200 || i == 398 ? "here\n" : "line\n";
  Run(kSearchFindNext, "«here»\n" + lines);
  auto lineInView = [&] { return edit_.control.CaretLine() - edit_.control.TopLine(); };
  int view = edit_.control.LinesInView();
  ASSERT_GT(view, 7);
  EXPECT_EQ(edit_.control.CaretLine(), LineNo(201));
  EXPECT_EQ(lineInView(), view - 1 - view / 4);
  EXPECT_TRUE(Run(kSearchFindNext));
  EXPECT_EQ(edit_.control.CaretLine(), LineNo(399));
  EXPECT_EQ(edit_.control.TopLine(), LineNo(402 - view)) << "no farther than the text goes";
  EXPECT_TRUE(Run(kSearchFindPrev));
  EXPECT_EQ(lineInView(), view / 4);
}

TEST_F(FindCommandsTest, ASelectionOverLinesLeavesThePatternAlone) {
  Run(kSearchFindNext, "«ab» ab");
  EXPECT_EQ(Run(kSearchFindNext, "«x\ny» ab"), "x\ny «ab»");
  EXPECT_EQ(find_.State().pattern, "ab");
}

TEST_F(FindCommandsTest, AsksBeforeItRestartsAndTellsWhenNothingIsThere) {
  program_.messages.answer = IDCANCEL;
  EXPECT_EQ(Run(kSearchFindNext, "ab «ab»"), "ab «ab»");
  EXPECT_EQ(program_.messages.boxes, std::vector<int>{kTextRestartFromStart});
  EXPECT_EQ(program_.messages.subjects, std::vector<std::string>{"ab"});
}

TEST_F(FindCommandsTest, ReplaceNextReplacesForGood) {
  Run(kSearchFindNext, "«ab» ab");
  EXPECT_EQ(Run(kSearchReplaceNext, "‸x ab"), "x ‸");
  EXPECT_FALSE(edit_.control.CanUndo());
}

TEST_F(FindCommandsTest, WarnsWithoutAWindowAndForAReadOnlyOne) {
  edit_.control.SetReadOnly(true);
  Run(kSearchReplaceNext, "‸ab");
  Run(kSearchReplace, "‸ab");
  EXPECT_EQ(program_.messages.alerts.size(), 2u);
  EXPECT_FALSE(IsEnabled(kSearchReplace));
  EXPECT_TRUE(IsEnabled(kSearchFind));
  program_.documents.activeText = nullptr;
  EXPECT_TRUE(Run(kSearchFind));
  EXPECT_EQ(program_.messages.alerts.size(), 3u);
  EXPECT_FALSE(IsEnabled(kSearchFind));
  EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(FindDialogTest, FindsWhatIsTyped) {
  Run(kSearchFind, "‸one two");
  ASSERT_NE(Dialog(), nullptr);
  SetField(IDC_FIND_WHAT, L"t.o");
  Click(IDOK);
  EXPECT_EQ(edit_.Marked(), "one «two»");
  EXPECT_TRUE(Run(kSearchFind)) << "brings the dialog forward";
}

TEST_F(FindDialogTest, TakesTheSelectionAndTheOptions) {
  Run(kSearchReplace, "«One» one oneself one");
  wchar_t text[16];
  ::GetDlgItemTextW(Dialog(), IDC_FIND_WHAT, text, 16);
  EXPECT_STREQ(text, L"One");
  Click(IDC_MATCH_CASE);
  Click(IDC_WHOLE_WORD);
  SetField(IDC_REPLACE_WITH, L"[&]");
  Click(IDC_REPLACE_ALL);
  EXPECT_EQ(edit_.control.View().Copy(), "[One] [one] oneself [one]");
  EXPECT_TRUE(edit_.control.UndoLast());
  EXPECT_EQ(edit_.Marked(), "«One» one oneself one") << "one unit of undo";
}

TEST_F(FindDialogTest, ReplacesTheMatchAndThenTheNext) {
  Run(kSearchReplace, "‸ab ab");
  SetField(IDC_FIND_WHAT, L"\\(a\\)b");
  SetField(IDC_REPLACE_WITH, L"\\1\\1\\1");
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "«aaa» ab");
  Click(IDOK);
  EXPECT_EQ(edit_.Marked(), "aaa «ab»");
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "aaa «aaa»");
}

TEST_F(FindDialogTest, ReplacesInTheSelectionOnly) {
  Run(kSearchReplace, "a «a\na» a");
  SetField(IDC_FIND_WHAT, L"a");
  SetField(IDC_REPLACE_WITH, L"b");
  Click(IDC_SELECTION_ONLY);
  Click(IDC_REPLACE_ALL);
  EXPECT_EQ(edit_.control.View().Copy(), "a b\r\nb a");
  EXPECT_TRUE(program_.messages.boxes.empty());
}

// With an unchanged pattern it is only the last match that is replaced, not whatever happens to be selected.
TEST_F(FindDialogTest, ReplacesNoSelectionOfTheUser) {
  Run(kSearchReplace, "‸ab cd ab");
  SetField(IDC_FIND_WHAT, L"ab");
  SetField(IDC_REPLACE_WITH, L"x");
  Click(IDOK);
  EXPECT_EQ(edit_.Marked(), "«ab» cd ab");
  edit_.control.Select(BytePos(3), BytePos(5));
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "ab cd «x»");
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "«x» cd x") << "what was put there last is no match either";
  EXPECT_EQ(program_.messages.boxes, std::vector<int>{kTextRestartFromStart});
}

TEST_F(FindDialogTest, ReplacesNoMatchInATextThatHasChanged) {
  Run(kSearchReplace, "‸ab ab");
  SetField(IDC_FIND_WHAT, L"ab");
  SetField(IDC_REPLACE_WITH, L"x");
  Click(IDOK);
  edit_.control.Replace({BytePos(0), BytePos(1)}, "c");
  edit_.control.Select(BytePos(0), BytePos(2));
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "cb «x»");
}

TEST_F(FindDialogTest, ReplacesOneByOneInTheSelectionOnly) {
  Run(kSearchReplace, "aa «a ab a»a aa");
  SetField(IDC_FIND_WHAT, L"a+b?");
  SetField(IDC_REPLACE_WITH, L"[&]");
  Click(IDC_SELECTION_ONLY);
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "aa «[a]» ab aa aa");
  Click(IDOK);
  EXPECT_EQ(edit_.Marked(), "aa [a] «ab» aa aa");
  Click(IDC_REPLACE);
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.Marked(), "aa [a] [ab] «[a]»a aa") << "the match ends with the selection";
  Click(IDC_REPLACE);
  EXPECT_EQ(edit_.control.View().Copy(), "aa [a] [ab] [a]a aa");
  EXPECT_EQ(program_.messages.boxes, std::vector<int>{kTextNotFound});
}

// The system's dialog may tell the field of the replacement only with the buttons that replace.
TEST_F(FindDialogTest, ReplaceNextKnowsTheReplacementThatFindNextHasSeen) {
  Run(kSearchReplace, "‸ab ab");
  SetField(IDC_FIND_WHAT, L"ab");
  SetField(IDC_REPLACE_WITH, L"xé");
  Click(IDOK);
  EXPECT_EQ(find_.State().replacement, "xé");
  Run(kSearchReplaceNext);
  EXPECT_EQ(edit_.Marked(), "ab «xé»");
}

TEST_F(FindDialogTest, SaysHowManyWereReplaced) {
  Run(kSearchReplace, "‸a b a a");
  SetField(IDC_FIND_WHAT, L"a");
  SetField(IDC_REPLACE_WITH, L"b");
  Click(IDC_REPLACE_ALL);
  ASSERT_EQ(program_.status.texts.size(), 1u);
  EXPECT_EQ(program_.status.texts[0], "Replaced: 3");
  Click(IDC_REPLACE_ALL);
  EXPECT_EQ(program_.status.texts.size(), 1u) << "nothing there";
}

TEST_F(FindDialogTest, ReplacesCharactersInUtf8) {
  Run(kSearchReplace, "‸αäβ");
  SetField(IDC_FIND_WHAT, L"[äöü]");
  SetField(IDC_REPLACE_WITH, L"ж");
  Click(IDC_REPLACE_ALL);
  EXPECT_EQ(edit_.control.View().Copy(), "αжβ");
}

RECT OnScreen(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  return rect;
}

TEST_F(FindDialogTest, MovesOutOfTheWayOfTheMatch) {
  ::SetWindowPos(edit_.Handle(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Run(kSearchFind, "‸one two");
  SetField(IDC_FIND_WHAT, L"two");
  ::SetWindowPos(Dialog(), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  Click(IDOK);
  RECT dialog = OnScreen(Dialog()), text = OnScreen(edit_.control.Handle());
  POINT match = edit_.control.PointOf(BytePos(4));
  bool isFree = dialog.left > text.left + match.x || dialog.top >= text.top + edit_.control.LineHeight();
  EXPECT_TRUE(isFree) << dialog.left << " " << dialog.top;
  EXPECT_GE(dialog.left, 0);
  EXPECT_GE(dialog.top, 0);
}

TEST_F(FindDialogTest, OpensOnTheScreenBesideASmallFrame) {
  ::SetWindowPos(program_.frame.Handle(), nullptr, 0, 0, 150, 100, SWP_NOZORDER);
  Run(kSearchReplace, "‸a");
  EXPECT_GE(OnScreen(Dialog()).left, 0);
  EXPECT_LE(OnScreen(Dialog()).bottom, ::GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(FindDialogTest, ReportsABadPatternAndThatNothingWasReplaced) {
  Run(kSearchReplace, "‸ab");
  SetField(IDC_FIND_WHAT, L"[a");
  Click(IDC_REPLACE_ALL);
  SetField(IDC_FIND_WHAT, L"x");
  Click(IDC_REPLACE_ALL);
  EXPECT_EQ(program_.messages.boxes, (std::vector<int>{kTextBadPattern, kTextNotFound}));
}

TEST_F(FindDialogTest, StandsAtTheRightEdgeAndThenWhereItWasLeft) {
  Run(kSearchFind, "‸a");
  RECT client{}, first{}, again{};
  HWND frame = program_.frame.Handle();
  ::GetClientRect(frame, &client);
  ::MapWindowPoints(frame, nullptr, reinterpret_cast<POINT*>(&client), 2);
  ::GetWindowRect(Dialog(), &first);
  EXPECT_EQ(first.right, client.right - ::GetSystemMetrics(SM_CXVSCROLL));
  EXPECT_EQ(first.top, client.top);
  ::SetWindowPos(Dialog(), nullptr, 11, 22, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  ::GetWindowRect(Dialog(), &first);
  find_.CloseDialog();
  ASSERT_EQ(Dialog(), nullptr);
  Run(kSearchReplace, "‸a");
  ::GetWindowRect(Dialog(), &again);
  EXPECT_EQ(again.right, first.right);
  EXPECT_EQ(again.top, first.top);
}

TEST_F(FindDialogTest, OpensTheHelpOfItsForm) {
  Run(kSearchReplace, "‸a");
  Click(IDC_FIND_HELP);
  EXPECT_EQ(program_.help.topics, std::vector<unsigned>{2});
}

}  // namespace
}  // namespace tarrow
