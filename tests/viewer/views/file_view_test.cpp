#include "viewer/views/file_view.h"

#include "edit/control/clipboard_text.h"
#include "ui/commands/commands.h"
#include "view_program.h"

namespace tarrow {
namespace {

class FileView : public ViewProgram {
 protected:
  static int BarPosition(const CFileView& view, int bar) { return ::GetScrollPos(view.Handle(), bar); }
  static void Move(const CFileView& view, ViewMove move, WPARAM columns = 0, LPARAM extend = 0) {
    view.Send(static_cast<UINT>(move), columns, extend);
  }
  static CellPos Cell(int row, int column) { return {LineNo(row), ColumnNo(column)}; }
};

TEST_F(FileView, OpensInHexWithItsSizeInTheStatusBar) {
  std::string path = scratch.Make("a.bin", std::string(33, 'x'));
  CHexFileView* view = OpenHex(path, kBars | kAlignLines | kIndentBlocks);
  ASSERT_TRUE(view);
  EXPECT_EQ(program.status.texts.back(), "FILE: " + path + ", Size: 33 Bytes");
  EXPECT_EQ(view->Flags(), kBars | kViewInHex | kFileView);
  EXPECT_EQ(view->Text(), path);
  EXPECT_EQ(program.status.line, 1);
  Move(*view, ViewMove::kFileEnd);
  EXPECT_EQ(view->State().Caret(), Cell(2, 48));
  EXPECT_EQ(program.status.line, 3);
  EXPECT_EQ(program.status.column, 49);
}

TEST_F(FileView, OpensAsTextWithItsLinesInTheStatusBar) {
  std::string path = scratch.Make("a.txt", "one\r\ntwo\r\n");
  CTextFileView* view = OpenText(path);
  ASSERT_TRUE(view);
  EXPECT_EQ(program.status.texts.back(), "FILE: " + path + ", 10 Bytes, 2 Lines");
  EXPECT_EQ(FormOf(view->Flags()), DocumentForm::kTextView);
  std::size_t shown = program.status.texts.size();
  EXPECT_TRUE(Run(*view, kHelpFileStats));
  EXPECT_EQ(program.status.texts.size(), shown + 1);
}

TEST_F(FileView, AsksOnceAboutControlCharactersInAText) {
  std::string path = scratch.Make("a.txt", "one\x01\x02\n");
  program.messages.answer = IDNO;
  EXPECT_FALSE(OpenText(path));
  EXPECT_EQ(program.messages.boxes, std::vector<int>{kTextNonAnsi});
  program.messages.answer = IDYES;
  EXPECT_TRUE(OpenText(path));
  EXPECT_EQ(program.messages.boxes.size(), 2u);
}

TEST_F(FileView, AFileThatIsNotThereIsReported) {
  EXPECT_FALSE(OpenHex(scratch / "none"));
  EXPECT_FALSE(OpenText(scratch / "none"));
  EXPECT_EQ(program.messages.fileErrors,
            (std::vector<FileCause>{FileCause::kFileNotFound, FileCause::kFileNotFound}));
}

TEST_F(FileView, KeysMoveTheCaretAndTheBars) {
  CHexFileView* view = OpenHex(scratch.Make("a.bin", std::string(16 * 2000, 'x')));
  Move(*view, ViewMove::kDown);
  Move(*view, ViewMove::kRight, 15, TRUE);
  EXPECT_EQ(view->State().selection, (CellSelection{Cell(1, 0), Cell(1, 15)}));
  Move(*view, ViewMove::kFileEnd);
  int top = 2000 - view->Page().rows;
  EXPECT_EQ(view->State().top.value, top);
  EXPECT_EQ(BarPosition(*view, SB_VERT), top * 1000 / 2000);
  int least = -1, most = -1;
  ::GetScrollRange(view->Handle(), SB_VERT, &least, &most);
  EXPECT_EQ(least, 0);
  EXPECT_EQ(most, 1000);
  ::GetScrollRange(view->Handle(), SB_HORZ, &least, &most);
  EXPECT_EQ(most, 63);
  view->Send(WM_KEYDOWN, VK_PRIOR);
  EXPECT_EQ(view->State().top.value, top - view->Page().rows + 1);
  view->Send(WM_VSCROLL, SB_TOP);
  EXPECT_EQ(view->State().top.value, 0);
  EXPECT_EQ(BarPosition(*view, SB_VERT), 0);
  view->Send(WM_HSCROLL, SB_PAGERIGHT);
  EXPECT_EQ(view->State().left.value, std::min(view->Page().columns, 63));
}

TEST_F(FileView, WithoutABarNoneAppears) {
  CHexFileView* view = OpenHex(scratch.Make("a.bin", std::string(16000, 'x')), 0);
  constexpr LONG kBarStyles = WS_HSCROLL | WS_VSCROLL;
  Move(*view, ViewMove::kFileEnd);
  EXPECT_EQ(::GetWindowLongW(view->Handle(), GWL_STYLE) & kBarStyles, 0);
  EXPECT_TRUE(Run(*view, kSetShowVScroll));
  EXPECT_EQ(::GetWindowLongW(view->Handle(), GWL_STYLE) & kBarStyles, WS_VSCROLL);
  EXPECT_GT(BarPosition(*view, SB_VERT), 900);
}

TEST_F(FileView, TheHorizontalBarDoesNotCoverTheCaret) {
  CHexFileView* view = OpenHex(scratch.Make("a.bin", std::string(16000, 'x')), kVerticalScroll);
  Move(*view, ViewMove::kBottomOfWindow);
  EXPECT_TRUE(Run(*view, kSetShowHScroll));
  PumpMessages();
  EXPECT_EQ(view->State().top.value, 1);
  EXPECT_TRUE(IsCaretInView(view->State(), view->Page()));
}

TEST_F(FileView, TheMousePlacesTheCaretAndSelects) {
  CTextFileView* view = OpenText(scratch.Make("a.txt", "one two\nthree\n"));
  RECT client = view->ClientRect();
  int width = client.right / view->Page().columns, height = client.bottom / view->Page().rows;
  auto at = [&](int row, int column) {
    return MAKELPARAM(column * width + width / 2, row * height + height / 2);
  };
  view->Send(WM_LBUTTONDOWN, MK_LBUTTON, at(0, 4));
  EXPECT_EQ(view->State().Caret(), Cell(0, 4));
  view->Send(WM_MOUSEMOVE, MK_LBUTTON, at(1, 2));
  view->Send(WM_LBUTTONUP, 0, at(1, 2));
  EXPECT_EQ(view->State().selection, (CellSelection{Cell(0, 4), Cell(1, 2)}));
  view->Send(WM_MOUSEMOVE, 0, at(1, 4));
  EXPECT_EQ(view->State().Caret(), Cell(1, 2)) << "the button is up";
  EXPECT_TRUE(IsEnabled(*view, kEditCopy));
  EXPECT_TRUE(Run(*view, kEditCopy));
  EXPECT_EQ(TextFromClipboard(view->Handle(), Charset()), "two\r\nth");
  view->Send(WM_LBUTTONDBLCLK, MK_LBUTTON, at(0, 1));
  EXPECT_TRUE(Run(*view, kEditCopyAppend));
  EXPECT_EQ(TextFromClipboard(view->Handle(), Charset()), "two\r\nthone");
  view->Send(WM_LBUTTONDOWN, MK_LBUTTON, at(9, 30));
  EXPECT_EQ(view->State().Caret(), Cell(1, 5)) << "the end of the text";
  EXPECT_FALSE(IsEnabled(*view, kEditCopy));
  CommandState state;
  EXPECT_FALSE(view->QueryCommand(kEditPaste, state)) << "nothing is changed in a view";
}

TEST_F(FileView, TheWheelScrolls) {
  CHexFileView* view = OpenHex(scratch.Make("a.bin", std::string(16000, 'x')));
  view->Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  int lines = view->State().top.value;
  EXPECT_GT(lines, 0);
  view->Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(view->State().top.value, 0);
  EXPECT_EQ(view->State().Caret(), Cell(0, 0)) << "the caret stays";
}

TEST_F(FileView, GoesToAddressesAndLines) {
  CHexFileView* hex = OpenHex(scratch.Make("a.bin", std::string(5000, 'x')));
  hex->GotoAddress(0xFF);
  EXPECT_EQ(hex->State().Caret(), Cell(15, 43));
  EXPECT_TRUE(IsCaretInView(hex->State(), hex->Page()));
  hex->GotoAddress(0xFFFFFFFF);
  EXPECT_EQ(hex->State().Caret(), Cell(312, 43)) << "the last row";
  CTextFileView* text = OpenText(scratch.Make("a.txt", "one\ntwo\nthree\n"));
  text->GotoPosition(LineNo(2), ColumnNo(3));
  EXPECT_EQ(text->State().Caret(), Cell(2, 3));
}

// A file that others change while it is shown.
TEST_F(FileView, ShowsWhatBecomesOfItsFile) {
  std::string path = scratch.Make("a.bin", std::string(1600, 'x'));
  CHexFileView* view = OpenHex(path);
  Move(*view, ViewMove::kFileEnd);
  EXPECT_EQ(view->State().Caret().row.value, 99);
  Rewrite(path, "gone");
  ASSERT_TRUE(PumpUntil([&] { return view->State().Caret().row == LineNo(0); }));
  EXPECT_TRUE(Run(*view, kHelpFileStats));
  EXPECT_TRUE(program.status.texts.back().ends_with("Size: 4 Bytes"));
  RenameFile(path, scratch / "b.bin");
  Move(*view, ViewMove::kFileEnd);
  view->Invalidate();
  PumpMessages();
  EXPECT_EQ(view->State().Caret(), Cell(0, 51)) << "what was opened stays";
  EXPECT_TRUE(program.messages.fileErrors.empty());
}

TEST_F(FileView, FindsTheLinesOfATextAgainThatHasChanged) {
  std::string path = scratch.Make("a.txt", "one\n");
  CTextFileView* view = OpenText(path);
  Rewrite(path, "two\nthree\nfour\n");
  ASSERT_TRUE(PumpUntil([&] {
    Move(*view, ViewMove::kFileEnd);
    return view->State().Caret() == Cell(2, 4);
  }));
}

// A view of a file that cannot be read any more, as on a disk that was taken out.
class Broken final : public CFileView {
 public:
  explicit Broken(const DocumentServices& services) : CFileView(services, "z:\\broken.bin", 0) {
    EXPECT_TRUE(CreateView());
  }
  void GotoPosition(LineNo, ColumnNo) override {}
  void ShowFileStats() override {}
  Charset SearchCharset() const override { return {}; }

 private:
  class Rows_ final : public ViewRows {
   public:
    std::int32_t Count() const override { return 100; }
    int Longest() const override { return 10; }
    const ViewRow& Read(LineNo) override { throw CFileException(FileCause::kHardware, "z:\\broken.bin"); }
    RowMarks MarksOf(LineNo, const CellSelection&) override { return {}; }
    ColumnSpan CopiedOf(LineNo, const CellSelection&) override { return {}; }
    FileRange BytesOf(const CellSelection&) override { return {}; }
    CellSelection CellsOf(const FileRange&) override { return {}; }
    CellSelection WordAt(CellPos) override { return {}; }
  };

  ViewRows* Rows() const override { return rows_.get(); }
  void CloseFile() override { rows_.reset(); }
  bool Refresh() override { return false; }
  bool Reopen(bool) override { return true; }
  void OnGoto() override {}

  std::unique_ptr<Rows_> rows_ = std::make_unique<Rows_>();
};

TEST_F(FileView, ClosesWhenItsFileCannotBeRead) {
  auto* view = new Broken(program.services);  // belongs to its window
  HWND window = view->Handle();
  Place(*view);
  EXPECT_TRUE(PumpUntil([&] { return !::IsWindow(window); }));
  EXPECT_EQ(program.messages.fileErrors, std::vector<FileCause>{FileCause::kHardware});
}

}  // namespace
}  // namespace tarrow
