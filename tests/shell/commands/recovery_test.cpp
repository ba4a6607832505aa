// The program keeps journals of its windows, and opens again what others have left.
#include "shell/commands/recovery.h"

#include "edit/recovery/journal_output.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "shell/program.h"
#include "tests/fakes/no_settings_files.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "ui/commands/commands.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// The button that is pressed in the next Recover dialog.
int pressed = 0;

void CALLBACK Press(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND dialog = ::FindWindowW(L"#32770", L"Recover");
  if (!dialog) return;
  ::KillTimer(nullptr, timer);
  ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(pressed), 0);
}

class RecoveryTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(frame.CreateMain({0, 0, 800, 600}));
    program.recovery.Start(directory);
  }
  ~RecoveryTest() override {
    frame.ForEachChild([](CMDIChildWnd& child) {
      static_cast<CTwFileEdit&>(child).SetModified(false);
      return true;
    });
    if (frame.Exists()) frame.Send(WM_CLOSE);
    MSG quit;
    while (::PeekMessageW(&quit, nullptr, 0, 0, PM_REMOVE)) {  // WM_QUIT is not for the tests that follow
    }
  }

  CTwFileEdit* New() {
    frame.Send(WM_COMMAND, kFileNew);
    return dynamic_cast<CTwFileEdit*>(frame.ActiveChild());
  }
  std::size_t Journals() const { return FindFiles(directory + "*.journal").size(); }

  // Leaves a text as a killed program does.
  void Leave(const std::string& name, bool isUntitled, FileStamp file, std::string_view text) {
    JournalDescription description{++left, 1, name, isUntitled, FileFormat::kUnix, file};
    std::string changes;
    AppendChange(changes, {BytePos(0), 0, text});
    WindowsJournalDisk disk(directory);
    JournalOutput output(disk, std::to_string(left) + ".journal");
    output.WriteFrame(EncodeDescription(description), {});
    output.WriteFrame(EncodeChangesHead({left, true, static_cast<std::int32_t>(text.size())}), changes);
    output.Commit();
    ASSERT_TRUE(output.IsWhole());
  }
  void OfferAndPress(int button) {
    pressed = button;
    ::SetTimer(nullptr, 0, 10, Press);
    program.recovery.Offer();
    PumpMessages();
  }
  CTwFileEdit* Find(const std::string& title) {
    CTwFileEdit* found = nullptr;
    frame.ForEachChild([&](CMDIChildWnd& child) {
      auto* edit = dynamic_cast<CTwFileEdit*>(&child);
      if (edit && edit->Path() == title) found = edit;
      return !found;
    });
    return found;
  }

  ScratchDirectory scratch;
  std::string directory = scratch / "Journals\\";
  NoSettingsFiles files;
  Program program{files};
  CTwFrame& frame = program.frame;
  std::uint64_t left = 0;
};

TEST_F(RecoveryTest, TextHasAJournalWhileItIsModified) {
  CTwFileEdit* window = New();
  ASSERT_TRUE(window);
  EXPECT_EQ(Journals(), 0u);
  window->Control().Type(U'a');
  EXPECT_TRUE(PumpUntil([&] { return Journals() == 1; }));
  window->SetModified(false);
  EXPECT_TRUE(PumpUntil([&] { return Journals() == 0; }));
  window->Control().Type(U'b');
  EXPECT_TRUE(PumpUntil([&] { return Journals() == 1; }));
  program.windows.CloseAll();
  EXPECT_TRUE(PumpUntil([&] { return Journals() == 0; })) << "the window was closed without saving";
}

TEST_F(RecoveryTest, EndOfTheSystemsSessionRemovesWhatTheUserGaveUp) {
  New()->Control().Type(U'a');
  program.recovery.EndNow(false);
  EXPECT_EQ(Journals(), 1u) << "nobody was asked";
  program.recovery.EndNow(true);
  EXPECT_EQ(Journals(), 0u);
}

TEST_F(RecoveryTest, RecoveredTextsComeBackUnderTheirNames) {
  std::string same = LowerCase(scratch.Make("same.c", "old")),
              changed = LowerCase(scratch.Make("changed.c", "x"));
  auto status = GetFileStatus(same);
  ASSERT_TRUE(status);
  Leave(same, false, {status->size, status->modified}, "new text\r\n");
  Leave(changed, false, {99, 99}, "my text\r\n");
  Leave("File1", true, {}, "untitled");
  Leave(LowerCase(scratch / "gone.c"), false, {5, 5}, "gone");
  OfferAndPress(IDOK);
  struct {
    std::string title, text;
  } const kCases[] = {{same, "new text\r\n"},
                      {changed + " (recovered, the file has changed since)", "my text\r\n"},
                      {"File1 (recovered)", "untitled"},
                      {LowerCase(scratch / "gone.c"), "gone"}};
  for (const auto& [title, text] : kCases) {
    CTwFileEdit* window = Find(title);
    ASSERT_TRUE(window) << title;
    EXPECT_EQ(window->Control().View().Copy(), text);
    EXPECT_TRUE(window->IsUnsaved());
    EXPECT_EQ(window->JournalName().format, FileFormat::kUnix);
  }
  EXPECT_EQ(ReadWholeFile(changed), "x");
  EXPECT_GE(Journals(), 4u) << "kept until there are new ones";
}

TEST_F(RecoveryTest, TextThatWasSavedInTheLastMomentIsNotOffered) {
  std::string path = LowerCase(scratch.Make("a.c", "the text\n"));
  Leave(path, false, {1, 1}, "the text\r\n");
  program.recovery.Offer();
  EXPECT_EQ(Journals(), 0u);
}

TEST_F(RecoveryTest, LaterLeavesEverything) {
  Leave("File1", true, {}, "untitled");
  OfferAndPress(IDCANCEL);
  EXPECT_EQ(Journals(), 1u);
  EXPECT_FALSE(frame.ActiveChild());
}

}  // namespace
}  // namespace tarrow
