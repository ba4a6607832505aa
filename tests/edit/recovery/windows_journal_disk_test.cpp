#include "edit/recovery/windows_journal_disk.h"

#include "base/exceptions.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

class WindowsJournalDiskTest : public testing::Test {
 protected:
  ScratchDirectory scratch;
  WindowsJournalDisk disk{scratch / "Journals\\Here\\"};
  std::string path = scratch / "Journals\\Here\\a.journal";
};

TEST_F(WindowsJournalDiskTest, HeldByOneAtATime) {
  EXPECT_TRUE(disk.Claim().empty()) << "there is no directory yet";
  auto file = disk.Create("a.journal");
  file->Write("text");
  file->Flush();
  EXPECT_TRUE(disk.Claim().empty());
  EXPECT_THROW(RemoveFile(path), CFileException);
  EXPECT_THROW((void)disk.Create("a.journal"), CFileException);
  file.reset();
  auto claimed = disk.Claim();
  ASSERT_EQ(claimed.size(), 1u);
  EXPECT_EQ(claimed[0]->Size(), 4u);
  EXPECT_TRUE(disk.Claim().empty());
}

TEST_F(WindowsJournalDiskTest, RemovedIsGoneAtOnce) {
  disk.Create("a.journal")->Remove();
  EXPECT_FALSE(FileExists(path));
  (void)disk.Create("a.journal");
  disk.Claim().at(0)->Remove();
  EXPECT_FALSE(FileExists(path));
}

TEST_F(WindowsJournalDiskTest, UsersDirectoryIsHisOwnAndLocal) {
  std::string directory = LowerCase(WindowsJournalDisk::UsersDirectory());
  EXPECT_TRUE(directory.ends_with("\\tarrow\\recovery\\")) << directory;
  EXPECT_NE(directory.find(":\\users\\"), std::string::npos) << directory;
}

}  // namespace
}  // namespace tarrow
