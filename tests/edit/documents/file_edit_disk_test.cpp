#include "edit/documents/file_edit.h"
#include "edit/files/look_at_file.h"
#include "framework/file.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "tests/edit/documents/document_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// A window with the file "a.txt", which other programs change.
class FileEditDiskTest : public testing::Test {
 protected:
  FileEditDiskTest() { program_.settings.arrange = ArrangeMode::kCascade; }
  ~FileEditDiskTest() override {
    for (HWND child : program_.frame.Children())
      ::SendMessageW(program_.frame.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(child), 0);
  }

  CTwFileEdit& Open(std::string_view text) {
    path_ = FullPathLower(scratch_.Make("a.txt", std::string(text)));
    CTwFileEdit* window = CTwFileEdit::Open(program_.services, path_, 0);
    if (!window) throw std::runtime_error("no window");
    PumpMessages();
    return *window;
  }
  void ChangeOutside(std::string_view text) {
    CFile file(path_, CFile::Mode::kCreate, CFile::Share::kRead);
    file.Write(text);
  }
  // The window comes to the front; returns the dialogs that ask.
  std::vector<WORD> Front(CTwFileEdit& window, int answer) {
    program_.messages.answer = answer;
    program_.messages.questions.clear();
    window.FileSeen(LookAtFile(path_));
    return program_.messages.questions;
  }
  static std::string TextOf(const CTwFileEdit& window) { return window.Control().View().Copy(); }

  using Dialogs = std::vector<WORD>;

  DocumentProgram program_;
  ScratchDirectory scratch_;
  std::string path_;
};

TEST_F(FileEditDiskTest, ReloadKeepsThePlace) {
  CTwFileEdit& window = Open("one\r\ntwo\r\nthree\r\n");
  BytePos caret(7);  // between the t and the w
  window.Control().Select(caret, caret);
  ChangeOutside("first\nsecond\nthird\n");
  EXPECT_EQ(Front(window, IDC_RELOAD), Dialogs{IDD_FILE_CHANGED});
  EXPECT_EQ(TextOf(window), "first\r\nsecond\r\nthird\r\n");
  EXPECT_EQ(window.Control().Caret(), BytePos(9));
  EXPECT_FALSE(window.Has(kModified));
  EXPECT_EQ(Front(window, IDC_RELOAD), Dialogs{});
  window.Control().Select(BytePos(20), BytePos(20));
  ChangeOutside("1\n");
  Front(window, IDC_RELOAD);
  EXPECT_EQ(window.Control().Caret(), window.Control().Buffer().End());
}

TEST_F(FileEditDiskTest, KeptIsKeptAndNotAskedAboutAgain) {
  CTwFileEdit& window = Open("one\r\n");
  ChangeOutside("longer\r\n");
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{IDD_FILE_CHANGED});
  EXPECT_EQ(TextOf(window), "one\r\n");
  EXPECT_FALSE(window.Has(kModified));
  window.Control().Replace({BytePos(0), BytePos(0)}, "x");
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{});
  EXPECT_TRUE(window.QuerySave(0));
  EXPECT_EQ(program_.messages.questions, Dialogs{});
  EXPECT_EQ(ReadWholeFile(path_), "xone\r\n");
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{}) << "a save of its own is no change";
}

TEST_F(FileEditDiskTest, AModifiedTextIsOverwrittenOrReloadedOnlyOnDemand) {
  CTwFileEdit& window = Open("one\r\n");
  window.Control().Replace({BytePos(0), BytePos(0)}, "x");
  ChangeOutside("longer\r\n");
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{IDD_TEXT_AND_FILE_CHANGED});
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{});
  EXPECT_FALSE(window.QuerySave(0)) << "what was not decided is asked before the save";
  EXPECT_EQ(program_.messages.questions, Dialogs{IDD_TEXT_AND_FILE_CHANGED});
  EXPECT_EQ(ReadWholeFile(path_), "longer\r\n");
  program_.messages.answer = IDC_OVERWRITE;
  EXPECT_TRUE(window.QuerySave(0));
  EXPECT_EQ(ReadWholeFile(path_), "xone\r\n");
  EXPECT_FALSE(window.Has(kModified));

  window.Control().Replace({BytePos(0), BytePos(0)}, "y");
  ChangeOutside("the third\r\n");
  program_.messages.answer = IDC_RELOAD;
  EXPECT_FALSE(window.QuerySave(0)) << "nothing was saved, and a window that was to be closed stays";
  EXPECT_EQ(TextOf(window), "the third\r\n");
  EXPECT_FALSE(window.Has(kModified));
}

TEST_F(FileEditDiskTest, ADeletedFileLeavesAModifiedText) {
  program_.settings.undoLevels = 5;
  CTwFileEdit& window = Open("one\r\n");
  RemoveFile(path_);
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{});
  EXPECT_TRUE(window.Has(kModified));
  EXPECT_NE(program_.status.texts.back().find(path_), std::string::npos);
  window.Control().Replace({BytePos(0), BytePos(0)}, "x");
  window.Control().UndoLast();
  EXPECT_TRUE(window.Has(kModified)) << "it is saved nowhere";
  EXPECT_TRUE(window.QuerySave(0));
  EXPECT_EQ(ReadWholeFile(path_), "one\r\n");
}

TEST_F(FileEditDiskTest, BackAtTheSavedTextItIsClean) {
  program_.settings.undoLevels = 5;
  CTwFileEdit& window = Open("one\r\n");
  window.Control().Replace({BytePos(0), BytePos(0)}, "x");
  EXPECT_TRUE(window.Has(kModified));
  window.Control().UndoLast();
  EXPECT_FALSE(window.Has(kModified));
  EXPECT_EQ(program_.status.indicators[Indicator::kModification], 0);
}

TEST_F(FileEditDiskTest, WhatTheProgramDoesToTheFileIsNoNews) {
  CTwFileEdit& window = Open("one\r\n");
  ChangeModifiedTime(path_, LookAtFile(path_).modified + 10'000'000);
  window.TakeFileAsKnown();
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{});
  std::string renamed = LowerCase(scratch_ / "b.txt");
  RenameFile(path_, renamed);
  window.FollowFile(path_ = renamed);
  EXPECT_EQ(Front(window, IDCANCEL), Dialogs{});
}

TEST_F(FileEditDiskTest, AReadOnlyFileSaysSo) {
  path_ = FullPathLower(scratch_.Make("a.txt", "one\r\n"));
  ChangeAttributes(path_, kAttributeReadOnly);
  ASSERT_TRUE(CTwFileEdit::Open(program_.services, path_, 0));
  EXPECT_TRUE(program_.status.texts.back().ends_with("(the file is read-only)"));
  ChangeAttributes(path_, kAttributeNormal);
}

}  // namespace
}  // namespace tarrow
