#include "shell/program.h"

#include "edit/documents/file_edit.h"
#include "framework/unicode.h"
#include "shell/state/session.h"
#include "tests/fakes/no_settings_files.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "ui/commands/commands.h"
#include "viewer/views/hex_file_view.h"
#include "viewer/views/text_file_view.h"

#include <gtest/gtest.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

namespace tarrow {
namespace {

// The real frame, with settings that no file holds.
class FrameTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(frame.CreateMain({0, 0, 800, 600}));
    program.keys.Load();
    PumpMessages();
  }
  ~FrameTest() override {
    if (frame.Exists()) frame.Send(WM_CLOSE);
    MSG quit;
    while (::PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE)) {  // WM_QUIT is not for the tests that follow
    }
  }

  CTwFileEdit* Open(const std::string& path, std::uint32_t flags = kVerticalScroll) {
    EXPECT_TRUE(program.files.OpenWithFlags(path, flags));
    PumpMessages();
    return dynamic_cast<CTwFileEdit*>(frame.ActiveChild());
  }
  int Children() const {
    int count = 0;
    frame.ForEachChild([&](CMDIChildWnd&) { return ++count > 0; });
    return count;
  }
  int MenuCount() const { return ::GetMenuItemCount(::GetMenu(frame.Handle())); }

  ScratchDirectory scratch;
  NoSettingsFiles files;
  Program program{files};
  CTwFrame& frame = program.frame;
};

TEST_F(FrameTest, ShowsTheMenuOfWhatIsOpen) {
  EXPECT_EQ(5, MenuCount());
  program.state.settings.global.arrange = ArrangeMode::kCascade;
  frame.Send(WM_COMMAND, kFileNew);
  PumpMessages();
  EXPECT_EQ(8, MenuCount());
  frame.Send(WM_COMMAND, kWindowCloseAll);
  PumpMessages();
  EXPECT_EQ(0, Children());
  EXPECT_EQ(5, MenuCount());
}

TEST_F(FrameTest, OpensAFileOnceAndRemembersIt) {
  std::string one = scratch.Make("one.c", "int a;\nint b;\n");
  std::string two = scratch.Make("two.c", "int c;\r\n");
  CTwFileEdit* first = Open(one);
  ASSERT_TRUE(first);
  EXPECT_EQ("int a;\r\nint b;\r\n", first->Control().View().Copy());
  Open(two);
  EXPECT_EQ(first, Open(one));
  EXPECT_EQ(2, Children());
  EXPECT_EQ((std::vector<std::string>{LowerCase(two), first->Path()}),
            program.state.settings.recentFiles.Names());
}

TEST_F(FrameTest, SavesEveryModifiedWindowInItsOwnFormat) {
  std::string one = scratch.Make("one.c", "a\nb\n");
  std::string two = scratch.Make("two.c", "a\rb\r");
  for (const std::string& path : {one, two}) Open(path)->Control().ReplaceSelection("x\r\n");
  CommandState state;
  EXPECT_TRUE(frame.QueryCommand(kFileSaveAll, state) && state.enabled);
  frame.Send(WM_COMMAND, kFileSaveAll);
  EXPECT_EQ("x\na\nb\n", ReadWholeFile(scratch / "one.c"));
  EXPECT_EQ("x\ra\rb\r", ReadWholeFile(scratch / "two.c"));
  EXPECT_TRUE(frame.QueryCommand(kFileSaveAll, state) && !state.enabled);
}

TEST_F(FrameTest, KeepsTheSessionInOrderWithTheBitsOfEachWindow) {
  std::string one = scratch.Make("one.c", "1\n"), two = scratch.Make("two.c", "2\n");
  Open(one, kReadOnly);
  Open(two, kVerticalScroll | kAlignLines);
  frame.Send(WM_COMMAND, kFileNew);
  frame.Send(WM_CLOSE);
  CProfileStore store = MakeSettingsStore({});
  store.Load(files.written);
  EXPECT_EQ((std::vector<SessionEntry>{{LowerCase(two), kVerticalScroll | kAlignLines},
                                       {LowerCase(one), kReadOnly}}),
            ReadSession(store));
}

TEST_F(FrameTest, RestacksItsWindowsAsTheyStood) {
  CTwFileEdit* back = Open(scratch.Make("one.c", "1\n"));
  Open(scratch.Make("two.c", "2\n"));
  CTwFileEdit* front = Open(scratch.Make("three.c", "3\n"));
  std::vector<HWND> before = frame.Children();
  EXPECT_EQ(before.front(), front->Handle());
  frame.ActivateChild(*back);
  EXPECT_NE(frame.Children(), before);
  frame.Restack(before);
  EXPECT_EQ(frame.Children(), before);
  EXPECT_EQ(frame.ActiveChild(), front);
}

TEST_F(FrameTest, RestoresASessionWithTheWindowInFrontInFront) {
  std::string one = scratch.Make("one.c", "1\n"), two = scratch.Make("two.c", "2\n");
  WriteSession(program.state.store, {{one, kReadOnly}, {two, kVerticalScroll}});
  program.session.Restore();
  auto* front = dynamic_cast<CTwFileEdit*>(frame.ActiveChild());
  ASSERT_TRUE(front);
  EXPECT_EQ(LowerCase(one), front->Path());
  EXPECT_TRUE(front->Has(kReadOnly));
  EXPECT_TRUE(ReadSession(program.state.store).empty());
}

TEST_F(FrameTest, ShowsAFileInOneFormAtATime) {
  std::string path = scratch.Make("one.c", "int a;\nint b;\n");
  EXPECT_TRUE(program.files.OpenFile(path, false, true));
  auto* hex = dynamic_cast<CHexFileView*>(frame.ActiveChild());
  ASSERT_TRUE(hex);
  EXPECT_TRUE(program.state.settings.recentFiles.Names().empty()) << "views are not listed";
  EXPECT_TRUE(program.files.OpenFile(path, false, true));
  EXPECT_EQ(hex, frame.ActiveChild());
  EXPECT_TRUE(Open(path));
  EXPECT_EQ(1, Children());
  EXPECT_TRUE(program.files.OpenWithFlags(path, WithForm(0, DocumentForm::kTextView)));
  EXPECT_TRUE(dynamic_cast<CTextFileView*>(frame.ActiveChild()));
  EXPECT_EQ(1, Children());
  EXPECT_EQ(1u, program.state.settings.recentFiles.Names().size());
}

TEST_F(FrameTest, AnAddressIsShownInHexAndALineWhereTheTextIs) {
  std::string path = scratch.Make("one.c", "int a;\nint b;\nint c;\n");
  Open(path);
  SourcePlace place{path, 16};
  place.isAddress = true;
  EXPECT_TRUE(program.files.OpenAt(place, {}));
  auto* hex = dynamic_cast<CHexFileView*>(frame.ActiveChild());
  ASSERT_TRUE(hex);
  EXPECT_EQ((CellPos{LineNo(1), ColumnNo(10)}), hex->State().Caret());
  EXPECT_EQ(1, Children());
  EXPECT_TRUE(program.files.OpenWithFlags(path, WithForm(0, DocumentForm::kTextView)));
  EXPECT_TRUE(program.files.OpenAt({path, 3, 5}, {}));
  auto* text = dynamic_cast<CTextFileView*>(frame.ActiveChild());
  ASSERT_TRUE(text);
  EXPECT_EQ((CellPos{LineNo(2), ColumnNo(4)}), text->State().Caret());
}

TEST_F(FrameTest, KeepsViewsInTheSession) {
  std::string one = scratch.Make("one.bin", "1"), two = scratch.Make("two.log", "2");
  std::uint32_t asText = WithForm(kVerticalScroll, DocumentForm::kTextView);
  WriteSession(program.state.store, {{one, kVerticalScroll | kViewInHex}, {two, asText}});
  program.session.Restore();
  EXPECT_TRUE(dynamic_cast<CHexFileView*>(frame.ActiveChild()));
  EXPECT_EQ(2, Children());
  frame.Send(WM_CLOSE);
  CProfileStore store = MakeSettingsStore({});
  store.Load(files.written);
  EXPECT_EQ(
      (std::vector<SessionEntry>{{LowerCase(one), kVerticalScroll | kViewInHex}, {LowerCase(two), asText}}),
      ReadSession(store));
}

TEST_F(FrameTest, OpensWhatIsDropped) {
  std::wstring names =
      ToWide(scratch.Make("a b.c", "1\n")) + L'\0' + ToWide(scratch.Make("c.c", "2\n")) + L'\0';
  std::size_t bytes = (names.size() + 1) * sizeof(wchar_t);
  HGLOBAL drop = ::GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
  auto* header = static_cast<DROPFILES*>(::GlobalLock(drop));
  header->pFiles = sizeof(DROPFILES);
  header->fWide = TRUE;
  std::memcpy(header + 1, names.c_str(), bytes);
  ::GlobalUnlock(drop);
  frame.Send(WM_DROPFILES, reinterpret_cast<WPARAM>(drop));
  EXPECT_EQ(2, Children());
}

TEST_F(FrameTest, TellsDirectoryAndNameApartInTheTitleOfAMinimisedWindow) {
  program.state.settings.global.arrange = ArrangeMode::kCascade;
  CTwFileEdit* window = Open(scratch.Make("one.c", "1\n"));
  std::string path = window->Path();
  ::ShowWindow(window->Handle(), SW_MINIMIZE);
  EXPECT_EQ(MinimisedTitle(path), window->Text());
  EXPECT_NE(path, window->Text());
  ::ShowWindow(window->Handle(), SW_RESTORE);
  EXPECT_EQ(path, window->Text());
  EXPECT_EQ("c:\\root.c", MinimisedTitle("c:\\root.c"));
  EXPECT_EQ("c:\\a b.c c.c", MinimisedTitle("c:\\a b.c\\c.c"));
}

TEST_F(FrameTest, SelectsLinesFromTheMargin) {
  CTwFileEdit* window = Open(scratch.Make("one.c", "one\ntwo\n"));
  TextControl& control = window->Control();
  control.Select(BytePos(6), BytePos(6));
  window->Send(WM_LBUTTONDBLCLK, 0, MAKELPARAM(2, 2));
  EXPECT_EQ((TextRange{BytePos(5), BytePos(10)}), control.Selection());
  window->Send(WM_LBUTTONDOWN, MK_CONTROL, MAKELPARAM(2, 2));
  EXPECT_EQ((TextRange{BytePos(0), BytePos(10)}), control.Selection());
}

TEST_F(FrameTest, NumbersWindowsWithoutANameForTheLifeOfTheProgram) {
  frame.Send(WM_COMMAND, kFileNew);
  std::string first = frame.ActiveChild()->Text();
  frame.Send(WM_COMMAND, kWindowCloseAll);
  frame.Send(WM_COMMAND, kFileNew);
  std::string second = frame.ActiveChild()->Text();
  EXPECT_EQ(std::stoi(first.substr(4)) + 1, std::stoi(second.substr(4)));
}

}  // namespace
}  // namespace tarrow
