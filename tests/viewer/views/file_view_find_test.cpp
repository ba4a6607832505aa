#include "search/find/find_commands.h"
#include "view_program.h"

namespace tarrow {
namespace {

class FindInFileView : public ViewProgram {
 protected:
  bool Find(UINT id) {
    LRESULT result = 0;
    return find.RunCommand(id, 0, nullptr, result);
  }
  static CellSelection Select(int row, int column, int toRow, int toColumn) {
    return {{LineNo(row), ColumnNo(column)}, {LineNo(toRow), ColumnNo(toColumn)}};
  }

  static void Extend(const CFileView& view, WPARAM columns) {
    view.Send(static_cast<UINT>(ViewMove::kRight), columns, TRUE);
  }

  FindCommands find{program.frame,  program.documents, program.messages,
                    program.status, program.waiting,   program.help};
};

TEST_F(FindInFileView, SelectsTheBytesOfAMatch) {
  std::string bytes = std::string(20, '\0') + "needle" + std::string(5'000'000, '\0') + "needle";
  CHexFileView* view = OpenHex(scratch.Make("a.bin", bytes));
  view->GotoAddress(20);
  Extend(*view, 13);
  EXPECT_EQ(view->SelectedBytes(), (FileRange{20, 26}));
  EXPECT_TRUE(Find(kSearchFindNext)) << "takes the selection as pattern";
  EXPECT_EQ(view->SelectedBytes(), (FileRange{bytes.size() - 6, bytes.size()}));
  EXPECT_TRUE(IsCaretInView(view->State(), view->Page()));
  EXPECT_TRUE(Find(kSearchFindPrev));
  EXPECT_EQ(view->SelectedBytes(), (FileRange{20, 26}));
  EXPECT_EQ(view->State().selection, Select(1, 19, 1, 32));
  EXPECT_TRUE(program.messages.boxes.empty());
  program.messages.answer = IDOK;
  EXPECT_TRUE(Find(kSearchFindPrev));
  EXPECT_EQ(program.messages.boxes, std::vector<int>{kTextRestartFromEnd});
  EXPECT_EQ(view->SelectedBytes().start, bytes.size() - 6);
  EXPECT_EQ(program.waiting.waits, 0);
}

TEST_F(FindInFileView, FindsInTextsOfBothKinds) {
  CTextFileView* utf8 =
      OpenText(scratch.Make("u.txt", "\tcaf\xC3\xA9\n" + std::string(400, 'x') + "caf\xC3\xA9\n"));
  utf8->GotoPosition(LineNo(0), ColumnNo(8));
  Extend(*utf8, 4);
  EXPECT_TRUE(Find(kSearchFindNext));
  EXPECT_EQ(utf8->SelectedBytes(), (FileRange{407, 412})) << "beyond what is shown of the line";
  EXPECT_EQ(utf8->State().Caret().row, LineNo(1));
  CTextFileView* ansi = OpenText(scratch.Make("a.txt", "\xE9\xE9 caf\xE9\n"));
  EXPECT_TRUE(Find(kSearchFindNext)) << "the same pattern in other bytes";
  EXPECT_EQ(ansi->SelectedBytes(), (FileRange{3, 7}));
}

TEST_F(FindInFileView, AMatchIsNotTakenForAPattern) {
  CTextFileView* view = OpenText(scratch.Make("a.txt", "a.b axb ayb a.b\n"));
  Extend(*view, 3);
  for (std::uint64_t start : {4u, 8u, 12u}) {
    EXPECT_TRUE(Find(kSearchFindNext));
    EXPECT_EQ(view->SelectedBytes().start, start);
  }
  EXPECT_EQ(find.State().pattern, "a.b");
}

TEST_F(FindInFileView, ReplacesNothing) {
  OpenHex(scratch.Make("a.bin", "abc"));
  CommandState state;
  EXPECT_TRUE(find.QueryCommand(kSearchFindNext, state) && state.enabled);
  EXPECT_TRUE(find.QueryCommand(kSearchReplaceNext, state) && !state.enabled);
  Find(kSearchReplaceNext);
  EXPECT_EQ(program.messages.alerts, std::vector<UINT>{MB_ICONEXCLAMATION});
}

TEST_F(FindInFileView, AFileThatHasGoneIsReported) {
  std::string path = scratch.Make("a.bin", "abc");
  OpenHex(path);
  RenameFile(path, scratch / "b.bin");
  EXPECT_TRUE(Find(kSearchFindNext));
  EXPECT_EQ(program.messages.fileErrors.size(), 1u);
}

}  // namespace
}  // namespace tarrow
