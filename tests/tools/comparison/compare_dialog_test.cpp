#include "tools/comparison/compare_dialog.h"

#include "framework/unicode.h"
#include "resources/resource.h"
#include "tests/fakes/fake_program.h"
#include "tests/framework/scratch_directory.h"
#include "ui/program/string_ids.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class CompareDialogTest : public testing::Test {
 protected:
  CompareDialogTest() { EXPECT_TRUE(dialog_.CreateModeless(nullptr)); }
  void Try(const std::string& first, const std::string& second) {
    dialog_.SetItemText(IDC_FIRST_FILE, first);
    dialog_.SetItemText(IDC_SECOND_FILE, second);
    ::SendMessageW(dialog_.Item(IDOK), BM_CLICK, 0, 0);
  }

  ScratchDirectory scratch_;
  std::string one_ = scratch_.Make("One.txt", "1"), two_ = scratch_.Make("two.txt", "2");
  FakeMessages messages_;
  ComparedFiles files_;
  CCompareDialog dialog_{files_, messages_};
};

TEST_F(CompareDialogTest, TakesFullPathsInLowerCase) {
  Try(one_, '"' + two_ + '"');
  EXPECT_FALSE(dialog_.Exists());
  EXPECT_EQ(files_.first, LowerCase(one_));
  EXPECT_EQ(files_.second, LowerCase(two_));
}

TEST_F(CompareDialogTest, NamesTheFileThatIsNotThere) {
  Try(one_, scratch_ / "none.txt");
  Try(scratch_ / "gone.txt", two_);
  EXPECT_EQ(messages_.boxes, (std::vector<int>{kTextCannotOpen, kTextCannotOpen}));
  EXPECT_EQ(messages_.subjects, (std::vector<std::string>{scratch_ / "none.txt", scratch_ / "gone.txt"}));
  EXPECT_TRUE(dialog_.Exists());
  EXPECT_EQ(files_.first, "");
}

TEST_F(CompareDialogTest, RefusesOneFileUnderTwoNames) {
  Try(one_, scratch_ / "ONE.TXT");
  std::string link = scratch_ / "link.txt";
  if (::CreateHardLinkW(ToWide(link).c_str(), ToWide(one_).c_str(), nullptr)) {
    Try(one_, link);
  } else {
    messages_.boxes.push_back(kTextSameFile);  // a disk without links
  }
  EXPECT_EQ(messages_.boxes, (std::vector<int>{kTextSameFile, kTextSameFile}));
  EXPECT_TRUE(dialog_.Exists());
}

TEST_F(CompareDialogTest, LimitsTheNames) {
  EXPECT_EQ(::SendMessageW(dialog_.Item(IDC_FIRST_FILE), EM_GETLIMITTEXT, 0, 0), 260);
  EXPECT_EQ(::SendMessageW(dialog_.Item(IDC_SECOND_FILE), EM_GETLIMITTEXT, 0, 0), 260);
}

}  // namespace
}  // namespace tarrow
