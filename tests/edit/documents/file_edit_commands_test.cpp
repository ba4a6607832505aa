#include "edit/documents/file_edit_commands.h"

#include "tests/edit/commands/edit_fixture.h"

#include "edit/control/clipboard_text.h"
#include "edit/text/letters.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class EditingCommandsTest : public testing::Test {
 protected:
  std::string Run(UINT id, std::string_view before) {
    edit_.SetMarked(before);
    EXPECT_TRUE(edit_.commands.Run(id));
    return edit_.Marked();
  }

  DocumentProgram program_;
  EditFixture edit_{program_};
};

UINT SoundOf(Beep beep) {
  return beep == Beep::kPlain         ? MB_OK
         : beep == Beep::kStop        ? MB_ICONSTOP
         : beep == Beep::kInformation ? MB_ICONINFORMATION
                                      : MB_ICONEXCLAMATION;
}

// The case through the window's own ways: keys, typed characters, commands.
void Play(EditFixture& edit, const EditingCase& c) {
  if (c.command == "Enter") return edit.Type(u"\r");
  if (c.command == "Tab") return edit.Type(u"\t");
  if (c.command == "Home") return edit.Press(VK_HOME);
  if (c.command == "DoubleClick") return void(edit.commands.OnDoubleClick(c.before.selection.start));
  if (c.command.starts_with("Type "))
    return edit.Type(Charset().ToWide(TextView(std::string_view(c.command).substr(5))));
  EXPECT_TRUE(edit.commands.Run(CommandIdFromName(c.command))) << c.command;
}

TEST_F(EditingCommandsTest, PlaysAllCasesThatTheEnginesPlay) {
  for (const auto& file : EditingCaseFiles()) {
    EditingCase c = ReadEditingCase(file);
    if (!c.charset.IsUtf8() && Charset::Of(TextView(c.before.text)).IsUtf8()) continue;
    edit_.flags = c.flags;
    edit_.control.SetReadOnly((c.flags & kReadOnly) != 0);
    program_.settings.tabSize = c.indent.tabSize;
    program_.settings.shiftWidth = c.indent.shiftWidth;
    program_.settings.expandTabs = c.indent.expandTabs;
    program_.messages.alerts.clear();
    edit_.SetMarked(c.before);
    Play(edit_, c);
    EXPECT_EQ(edit_.Marked(), ShowMarkedText(c.after)) << file;
    std::vector<UINT> beeps;
    if (c.beep != Beep::kNone) beeps.push_back(SoundOf(c.beep));
    EXPECT_EQ(program_.messages.alerts, beeps) << file;
  }
}

TEST_F(EditingCommandsTest, EachCommandIsOneUnitOfUndo) {
  EXPECT_EQ(Run(kEditShiftRight, "«a\nb\nc\nd»"), "    «a\n    b\n    c\n    d»");
  EXPECT_TRUE(edit_.commands.Run(kEditUndo));
  EXPECT_EQ(edit_.Marked(), "«a\nb\nc\nd»");
  EXPECT_EQ(program_.waiting.waits, 0);
}

TEST_F(EditingCommandsTest, EnterWithItsIndentationIsOneUnitOfUndo) {
  edit_.flags = kAlignLines;
  edit_.SetMarked("\tone‸");
  edit_.Type(u"\r");
  EXPECT_EQ(edit_.Marked(), "\tone\n\t‸");
  edit_.commands.Run(kEditUndo);
  EXPECT_EQ(ShowMarkedText({edit_.control.View().Copy(), {}}), "‸\tone");
}

TEST_F(EditingCommandsTest, SeveralLevelsOfUndoKeepWhatCameBeforeTheClipboard) {
  edit_.control.SetUndoLevels(10);
  edit_.SetMarked("«one» two");
  edit_.commands.Run(kEditCut);
  edit_.commands.Run(kEditPaste);
  edit_.commands.Run(kEditPaste);
  EXPECT_EQ(edit_.Marked(), "oneone‸ two");
  EXPECT_FALSE(edit_.commands.State(kEditRepeat).enabled);
  for (const char* text : {"one two", " two", "one two"}) {
    edit_.commands.Run(kEditUndo);
    EXPECT_EQ(edit_.control.View().Copy(), text);
  }
  EXPECT_TRUE(program_.messages.alerts.empty());
  edit_.commands.Run(kEditUndo);
  EXPECT_EQ(program_.messages.alerts.size(), 1u) << "there is nothing more";
  EXPECT_TRUE(edit_.commands.State(kEditRepeat).enabled);
  for (const char* text : {" two", "one two", "oneone two"}) {
    edit_.commands.Run(kEditRepeat);
    EXPECT_EQ(edit_.control.View().Copy(), text);
  }
  edit_.commands.Run(kEditRepeat);
  EXPECT_EQ(program_.messages.alerts.size(), 2u);
  edit_.control.SetReadOnly(true);
  EXPECT_FALSE(edit_.commands.State(kEditUndo).enabled);
  edit_.commands.Run(kEditRepeat);
  EXPECT_EQ(edit_.Marked(), "one«one» two");
}

TEST_F(EditingCommandsTest, UndoWithoutAnythingToUndoBeeps) {
  EXPECT_EQ(Run(kEditUndo, "a‸"), "a‸");
  EXPECT_EQ(program_.messages.alerts, std::vector<UINT>{MB_ICONEXCLAMATION});
}

TEST_F(EditingCommandsTest, RefusesChangesOfAReadOnlyWindow) {
  edit_.flags = kReadOnly;
  for (const EditingCommand& command : EditingCommandTable()) {
    if (!command.changesText) continue;
    program_.messages.alerts.clear();
    EXPECT_EQ(Run(command.id, "  «ab» c"), "  «ab» c") << command.id;
    EXPECT_EQ(program_.messages.alerts, std::vector<UINT>{MB_ICONEXCLAMATION}) << command.id;
    EXPECT_FALSE(edit_.commands.State(command.id).enabled) << command.id;
  }
}

TEST_F(EditingCommandsTest, RefusesChangesOfAControlThatIsReadOnlyByAMessage) {
  edit_.flags = kAlignLines | kOvertype;
  edit_.SetMarked("\tab‸cd ef");
  edit_.control.Send(EM_SETREADONLY, TRUE);
  for (const char16_t* typed : {u"\r", u"x", u"\t", u"\b", u"\x7F"}) edit_.Type(typed);
  edit_.Press(VK_DELETE);
  for (UINT command : {kEditShiftRight, kEditUpper, kEditTranspose, kEditPaste}) {
    EXPECT_TRUE(edit_.commands.Run(command));
    EXPECT_FALSE(edit_.commands.State(command).enabled) << command;
  }
  EXPECT_EQ(edit_.Marked(), "\tab‸cd ef");
}

// One answer holds for the window; no answer is asked for again.
TEST_F(EditingCommandsTest, AsksOnceWhatBecomesOfMissingCharacters) {
  for (std::uint32_t flags : {std::uint32_t{0}, std::uint32_t{kOvertype}}) {
    EditFixture edit(program_);
    edit.flags = flags;
    program_.messages.boxes.clear();
    program_.messages.answer = IDCANCEL;
    edit.SetMarked({"caf\xE9x", {BytePos(4), BytePos(4)}});
    edit.Type(u"\u0416");
    EXPECT_EQ(edit.control.View().Copy(), "caf\xE9x");
    program_.messages.answer = IDNO;
    edit.Type(u"\u0416\u0416");
    EXPECT_EQ(edit.control.View().Copy(), flags ? "caf\xE9??" : "caf\xE9??x");
    EXPECT_EQ(program_.messages.boxes, (std::vector<int>{kTextConvertToUtf8, kTextConvertToUtf8}));
    EXPECT_EQ(program_.messages.subjects.back(), edit.name);
  }
  program_.messages.answer = IDYES;
  edit_.flags = kOvertype;
  edit_.SetMarked({"caf\xE9x", {BytePos(4), BytePos(4)}});
  edit_.Type(u"\u0416");
  EXPECT_EQ(edit_.control.View().Copy(), "café\xD0\x96");
}

TEST_F(EditingCommandsTest, AppendsWhatAnotherCharsetLacks) {
  ASSERT_TRUE(PutOnClipboard(edit_.Handle(), TextView("\xD0\x96"), Charset()));
  edit_.SetMarked({"caf\xE9", {BytePos(0), BytePos(4)}});
  EXPECT_TRUE(edit_.commands.Run(kEditCopyAppend));
  EXPECT_EQ(TextFromClipboard(edit_.Handle(), Charset()),
            "\xD0\x96"
            "café");
}

TEST_F(EditingCommandsTest, AppendsToTheClipboardAndCuts) {
  ASSERT_TRUE(PutOnClipboard(edit_.Handle(), TextView("one "), Charset()));
  EXPECT_EQ(Run(kEditCopyAppend, "«twoé» three"), "«twoé» three");
  EXPECT_EQ(TextFromClipboard(edit_.Handle(), Charset()), "one twoé");
  EXPECT_EQ(Run(kEditCutAppend, "a«bc»d"), "a‸d");
  EXPECT_EQ(TextFromClipboard(edit_.Handle(), Charset()), "one twoébc");
  EXPECT_EQ(Run(kEditPaste, "-‸-"), "-one twoébc‸-");
}

TEST_F(EditingCommandsTest, AppendingNothingBeepsAndLeavesTheClipboard) {
  ASSERT_TRUE(PutOnClipboard(edit_.Handle(), TextView("kept"), Charset()));
  EXPECT_EQ(Run(kEditCutAppend, "ab‸c"), "ab‸c");
  EXPECT_EQ(program_.messages.alerts, std::vector<UINT>{MB_OK});
  EXPECT_EQ(TextFromClipboard(edit_.Handle(), Charset()), "kept");
}

TEST_F(EditingCommandsTest, SaysThatABraceHasNoPartner) {
  Run(kSearchMatchBrace, "‸(");
  EXPECT_EQ(program_.status.texts, std::vector<std::string>{std::to_string(kTextNoMatchingBrace)});
}

TEST_F(EditingCommandsTest, SayThatTheyAreNotThereYet) {
  Run(kSearchMark, "a‸");
  Run(kSearchGotoMark, "a‸");
  EXPECT_EQ(program_.messages.boxes, (std::vector<int>{kTextUnimplemented, kTextUnimplemented}));
  EXPECT_EQ(Run(kEditRepeat, "a‸"), "a‸");
}

TEST_F(EditingCommandsTest, TellTheirWindowThatTheCaretHasMoved) {
  Run(kEditMoveFwdEnd, "‸one");
  EXPECT_TRUE(PumpUntil([&] { return edit_.caretMoves > 0; }));
}

TEST_F(EditingCommandsTest, ToggleTheFlagsTheyStandFor) {
  edit_.commands.Run(kSetIndent);
  EXPECT_EQ(edit_.flags, std::uint32_t{kAlignLines | kIndentBlocks});
  EXPECT_TRUE(edit_.commands.State(kSetIndent).checked);
  edit_.commands.Run(kSetAlign);
  EXPECT_EQ(edit_.flags, 0u);
  EXPECT_FALSE(edit_.commands.State(kSetAlign).checked);
  edit_.commands.Run(kSetReadOnly);
  EXPECT_TRUE(edit_.control.IsReadOnly());
  edit_.commands.Run(kSetReadOnly);
  EXPECT_FALSE(edit_.control.IsReadOnly());
  edit_.flags = kModified;
  EXPECT_TRUE(edit_.commands.State(kSetClean).enabled);
  edit_.commands.Run(kSetClean);
  EXPECT_FALSE(edit_.commands.State(kSetClean).enabled);
}

TEST_F(EditingCommandsTest, TellMenusTheTruth) {
  ASSERT_TRUE(PutOnClipboard(edit_.Handle(), TextView("text"), Charset()));
  edit_.SetMarked("ab‸");
  EXPECT_FALSE(edit_.commands.State(kEditUndo).enabled);
  EXPECT_FALSE(edit_.commands.State(kEditCut).enabled);
  EXPECT_TRUE(edit_.commands.State(kEditPaste).enabled);
  edit_.Type(u"c");
  EXPECT_TRUE(edit_.commands.State(kEditUndo).enabled);
  edit_.SetMarked("«ab»");
  EXPECT_TRUE(edit_.commands.State(kEditCut).enabled);
  EXPECT_FALSE(edit_.commands.Run(kFileSave)) << "no editing command";
}

// Fills in the Goto Line dialog when it opens, and says what it offered.
class GotoLineUser {
 public:
  explicit GotoLineUser(const wchar_t* number) {
    number_ = number;
    offered = -1;
    hook_ = ::SetWindowsHookExW(WH_CBT, OnEvent, nullptr, ::GetCurrentThreadId());
  }
  ~GotoLineUser() { ::UnhookWindowsHookEx(hook_); }

  static inline int offered;

 private:
  static LRESULT CALLBACK OnEvent(int code, WPARAM w, LPARAM l) {
    auto window = reinterpret_cast<HWND>(w);
    if (code == HCBT_ACTIVATE && ::GetDlgItem(window, IDC_GOTO)) {
      offered = static_cast<int>(::GetDlgItemInt(window, IDC_GOTO, nullptr, FALSE));
      ::SetDlgItemTextW(window, IDC_GOTO, number_);
      ::PostMessageW(window, WM_COMMAND, IDOK, 0);
    }
    return ::CallNextHookEx(nullptr, code, w, l);
  }

  static inline const wchar_t* number_;
  HHOOK hook_;
};

TEST_F(EditingCommandsTest, GoToALineAndOfferTheOneLeft) {
  edit_.SetMarked("one\ntwo‸\nthree");
  {
    GotoLineUser user(L"3");
    edit_.commands.Run(kSearchGotoLine);
    EXPECT_EQ(user.offered, 1);
  }
  EXPECT_EQ(edit_.Marked(), "one\ntwo\n‸three");
  {
    GotoLineUser user(L"99999999999");
    edit_.commands.Run(kSearchGotoLine);
    EXPECT_EQ(user.offered, 2);
  }
  EXPECT_EQ(edit_.Marked(), "one\ntwo\n‸three");
  GotoLineUser user(L"0");
  edit_.commands.Run(kSearchGotoLine);
  EXPECT_EQ(edit_.Marked(), "‸one\ntwo\nthree");
}

TEST_F(EditingCommandsTest, GotoLineDoesNotLeaveTheTargetAtTheBottom) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "line\r\n";
  edit_.SetMarked(MarkedText{text, {}});
  int inView = edit_.control.LinesInView();
  std::wstring bottom = std::to_wstring(inView);
  GotoLineUser user(bottom.c_str());
  edit_.commands.Run(kSearchGotoLine);
  EXPECT_EQ(edit_.control.TopLine(), LineNo(inView / 2));
}

TEST(LetterTables, AgreeWithTheAnsiTestsOfTheSystem) {
  Charset charset{SystemCodePage()};
  for (int byte = 1; byte < 256; ++byte) {
    if (SystemCodePage().isLead[static_cast<std::size_t>(byte)]) continue;
    std::string one(1, static_cast<char>(byte)), upper, lower;
    AppendConverted(upper, TextView(one), LetterCase::kUpper, charset);
    AppendConverted(lower, TextView(one), LetterCase::kLower, charset);
    char up = one[0], low = one[0];
    ::CharUpperBuffA(&up, 1);
    ::CharLowerBuffA(&low, 1);
    EXPECT_EQ(upper, std::string(1, up)) << byte;
    EXPECT_EQ(lower, std::string(1, low)) << byte;
    bool isWord = ::IsCharAlphaNumericA(one[0]) || byte == '_';
    EXPECT_EQ(IsWordCharacter(TextView(one), BytePos(0), charset), isWord) << byte;
  }
}

}  // namespace
}  // namespace tarrow
