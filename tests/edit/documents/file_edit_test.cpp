#include "edit/documents/file_edit.h"

#include "framework/unicode.h"
#include "tests/edit/documents/document_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class FileEditTest : public testing::Test {
 protected:
  FileEditTest() { program_.settings.arrange = ArrangeMode::kCascade; }
  ~FileEditTest() override {
    for (HWND child : program_.frame.Children())
      ::SendMessageW(program_.frame.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(child), 0);
  }
  CTwFileEdit& New(std::string_view text) {
    CTwFileEdit* window = CTwFileEdit::New(program_.services, 0);
    if (!window) throw std::runtime_error("no window");
    window->Control().ReplaceSelection(text);
    window->SetModified(false);
    PumpMessages();
    return *window;
  }

  DocumentProgram program_;
};

TEST_F(FileEditTest, ColumnsOfUtf8CountCharacters) {
  CTwFileEdit& window = New("x\r\n\xC3\xA9\xD0\x96");
  window.PublishState();
  EXPECT_EQ(program_.status.line, 2);
  EXPECT_EQ(program_.status.column, 3);
  New("caf\xE9\xE9").PublishState();
  EXPECT_EQ(program_.status.column, 6);
}

TEST_F(FileEditTest, ListsNameFirstAndMarksWhatIsNotSaved) {
  CTwFileEdit& window = New("one");
  std::string title = window.Text();
  EXPECT_EQ(window.ListText(), title);
  window.SetModified(true);
  EXPECT_EQ(window.ListText(), title + " *");
  EXPECT_EQ(window.Text(), title);
  ScratchDirectory scratch;
  CTwFileEdit* file = CTwFileEdit::Open(program_.services, FullPathLower(scratch.Make("a b.c", "x\n")), 0);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->ListText(), "a b.c   " + LowerCase(scratch.Path()));
  file->SetModified(true);
  EXPECT_EQ(file->ListText(), "a b.c *   " + LowerCase(scratch.Path()));
  EXPECT_EQ(file->Text(), LowerCase(scratch / "a b.c"));
}

TEST_F(FileEditTest, AMinimisedWindowHasNoPlaceInTheStatusBar) {
  CTwFileEdit& first = New("one\r\ntwo");
  CTwFileEdit& second = New("three");
  ::ShowWindow(first.Handle(), SW_SHOWMINNOACTIVE);
  second.PublishState();
  EXPECT_EQ(program_.status.line, 1);
  program_.status.indicators.clear();
  ::SendMessageW(program_.frame.Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(first.Handle()), 0);
  EXPECT_EQ(program_.status.line, 0);
  EXPECT_EQ(program_.status.indicators.size(), 4u) << "they are those of the window before it";
  ::SendMessageW(program_.frame.Client(), WM_MDIRESTORE, reinterpret_cast<WPARAM>(first.Handle()), 0);
  PumpMessages();
  first.PublishState();
  EXPECT_EQ(program_.status.line, 2);
  ::ShowWindow(first.Handle(), SW_MINIMIZE);
  PumpMessages();
  EXPECT_EQ(program_.status.line, program_.frame.ActiveChild() == &first ? 0 : 1);
}

TEST_F(FileEditTest, WhoeverIsAskedSeesTheText) {
  CTwFileEdit& first = New("one");
  CTwFileEdit& second = New("two");
  first.SetModified(true);
  EXPECT_EQ(program_.frame.ActiveChild(), &second);
  program_.messages.answer = IDNO;
  EXPECT_TRUE(second.QuerySave(kTextSaveBeforeClosing));
  EXPECT_EQ(program_.frame.ActiveChild(), &second) << "nothing was asked";
  EXPECT_TRUE(first.QuerySave(kTextSaveBeforeClosing));
  EXPECT_EQ(program_.frame.ActiveChild(), &first);
}

}  // namespace
}  // namespace tarrow
