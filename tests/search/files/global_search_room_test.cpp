#include "search/files/global_search_room.h"

#include "edit/documents/log.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "tests/edit/documents/document_program.h"
#include "tests/framework/scratch_directory.h"
#include "tests/window_pump.h"
#include "tools/file_lists/file_dir.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

std::vector<std::string> ListFiles(const std::vector<std::string>& names, Progress& progress) {
  DiskLookup disk;
  CFileDir list(disk, &progress);
  list.BuildFromNames(names);
  std::vector<std::string> paths;
  while (const std::string* path = list.Next()) paths.push_back(*path);
  return paths;
}

class GlobalSearchRoomTest : public testing::Test {
 protected:
  void SetUp() override {
    program_.options.values[kOptionGrepFiles] = "*.c *.h";
    program_.documents.makeLog = [this](std::string title, PlaceFinder finder) {
      return log_ = CTwLog::New(program_.services, std::move(title), std::move(finder));
    };
    program_.frame.AddTarget(room_);
    scratch_.Make("one.c", "int a;\r\nint foo();\r\n");
    scratch_.Make("two.h", "\n\nFOO foo\n");
    program_.frame.Send(WM_COMMAND, kSearchGrep);
    ASSERT_TRUE(room_.Dialog());
  }

  void Fill(std::string_view text) {
    room_.Dialog()->SetItemText(IDC_SEARCH_FOR, text);
    room_.Dialog()->SetItemText(IDC_IN_DIRECTORY, scratch_.Path());
  }
  void Click(int id) { ::SendMessageW(room_.Dialog()->Item(id), BM_CLICK, 0, 0); }
  std::string Found() const {
    std::string text = log_->Control().View().Copy(), directory = LowerCase(scratch_.Path()) + "\\";
    for (std::size_t at; (at = text.find(directory)) != std::string::npos;) text.erase(at, directory.size());
    return text;
  }
  bool CanSearch() const { return ::IsWindowEnabled(room_.Dialog()->Item(IDOK)) != 0; }

  ScratchDirectory scratch_;
  DocumentProgram program_;
  CTwLog* log_ = nullptr;  // the last result window
  GlobalSearchRoom room_{
      {program_.frame, program_.documents, program_.messages, program_.status, program_.waiting},
      program_.options,
      program_.help,
      ListFiles};
};

TEST_F(GlobalSearchRoomTest, OpensOneDialogWithItsDefaults) {
  CGrepDialog* dialog = room_.Dialog();
  program_.frame.Send(WM_COMMAND, kSearchGrep);
  EXPECT_EQ(room_.Dialog(), dialog);
  EXPECT_EQ(dialog->ItemText(IDC_IN_FILES), "*.c *.h");
  EXPECT_FALSE(dialog->ItemText(IDC_IN_DIRECTORY).empty());
  EXPECT_TRUE(dialog->ItemChecked(IDC_SEARCH_MATCH_CASE));
  EXPECT_FALSE(dialog->ItemChecked(IDC_SEARCH_WHOLE_WORD));
  EXPECT_TRUE(dialog->ItemChecked(IDC_SEARCH_LIST_LINES));
  EXPECT_FALSE(CanSearch());
  dialog->SetItemText(IDC_SEARCH_FOR, "x");
  EXPECT_TRUE(CanSearch());
  dialog->SetItemText(IDC_IN_FILES, "");
  EXPECT_FALSE(CanSearch());
}

TEST_F(GlobalSearchRoomTest, ListsMatchingLinesAndStaysOpen) {
  Fill("foo");
  Click(IDOK);
  ASSERT_TRUE(log_);
  EXPECT_EQ(Found(), "one.c(2): int foo();\r\ntwo.h(3): FOO foo\r\n");
  EXPECT_EQ(log_->Text(), "GREP foo");
  EXPECT_TRUE(room_.Dialog());
  EXPECT_TRUE(::IsWindowEnabled(room_.Dialog()->Handle()));
  EXPECT_EQ(program_.waiting.waits, 0);
}

TEST_F(GlobalSearchRoomTest, TakesTheBoxesAsTheyAre) {
  Fill("foo");
  Click(IDC_SEARCH_LIST_LINES);
  Click(IDC_SEARCH_MATCH_CASE);
  Click(IDOK);
  EXPECT_EQ(Found(), "one.c: 1\r\ntwo.h: 1\r\n");
  Click(IDC_SEARCH_WHOLE_WORD);
  room_.Dialog()->SetItemText(IDC_SEARCH_FOR, "fo");
  log_ = nullptr;
  Click(IDOK);
  EXPECT_EQ(program_.messages.boxes, std::vector<int>{kTextNotFound});
}

TEST_F(GlobalSearchRoomTest, DefaultsGiveBackTheLastSearch) {
  Fill("foo");
  Click(IDC_SEARCH_WHOLE_WORD);
  Click(IDOK);
  room_.Dialog()->SetItemText(IDC_IN_DIRECTORY, "elsewhere");
  room_.Dialog()->SetItemText(IDC_IN_FILES, "*.txt");
  room_.Dialog()->SetItemText(IDC_SEARCH_FOR, "kept");
  Click(IDC_SEARCH_WHOLE_WORD);
  Click(IDC_SEARCH_DEFAULTS);
  EXPECT_EQ(room_.Dialog()->ItemText(IDC_IN_DIRECTORY), scratch_.Path());
  EXPECT_EQ(room_.Dialog()->ItemText(IDC_IN_FILES), "*.c *.h");
  EXPECT_EQ(room_.Dialog()->ItemText(IDC_SEARCH_FOR), "kept");
  EXPECT_TRUE(room_.Dialog()->ItemChecked(IDC_SEARCH_WHOLE_WORD));
}

TEST_F(GlobalSearchRoomTest, LeavesNoWindowWhereNothingWasFound) {
  Fill("zebra");
  Click(IDOK);
  EXPECT_EQ(program_.messages.boxes, std::vector<int>{kTextNotFound});
  EXPECT_EQ(program_.messages.subjects, std::vector<std::string>{"zebra"});
  EXPECT_EQ(program_.frame.ActiveChild(), nullptr);
}

TEST_F(GlobalSearchRoomTest, TellsWhatIsWrongBeforeItSearches) {
  Fill("[a");
  Click(IDOK);
  Fill("a");
  room_.Dialog()->SetItemText(IDC_IN_DIRECTORY, "q:\\nowhere");
  Click(IDOK);
  EXPECT_EQ(program_.messages.boxes, (std::vector<int>{kTextBadPattern, kTextBadPath}));
  EXPECT_FALSE(log_);
}

TEST_F(GlobalSearchRoomTest, HelpsAndIsForgottenWhenItCloses) {
  Click(IDC_HELP_BUTTON);
  EXPECT_EQ(program_.help.topics, std::vector<unsigned>{3});
  Click(IDCANCEL);
  EXPECT_FALSE(room_.Dialog());
  program_.frame.Send(WM_COMMAND, kSearchGrep);
  EXPECT_TRUE(room_.Dialog());
}

}  // namespace
}  // namespace tarrow
