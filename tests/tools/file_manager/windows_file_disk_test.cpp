#include "tools/file_manager/windows_file_disk.h"

#include "base/exceptions.h"
#include "framework/file.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct NoProgress final : Progress {
  void Poll() override {
    if (--polls < 0) throw CYieldException();
  }
  int polls = 1000;
};

class WindowsFileDiskTest : public testing::Test {
 protected:
  std::uint32_t Shown(const std::string& path) {
    return *disk_.Attributes(path) & (kAttributeReadOnly | kAttributeHidden | kAttributeArchive);
  }

  ScratchDirectory scratch_;
  WindowsFileDisk disk_;
  NoProgress progress_;
};

TEST_F(WindowsFileDiskTest, CopiesBytesTimesAndAttributes) {
  std::string bytes(3'000'001, 'x');
  std::string from = scratch_.Make("a.bin", bytes), to = disk_.MakeTemporary(scratch_ / "b.bin");
  constexpr std::uint64_t kTime = 125'911'584'000'000'000;  // 2000
  disk_.SetModified(from, kTime);
  disk_.SetAttributes(from, kAttributeReadOnly);
  disk_.Copy(from, to, progress_);
  EXPECT_EQ(ReadWholeFile(to), bytes);
  EXPECT_EQ(disk_.State(to)->modified, kTime);
  EXPECT_EQ(Shown(to), Shown(from));
  for (const std::string& path : {from, to}) disk_.SetAttributes(path, kAttributeNormal);
}

TEST_F(WindowsFileDiskTest, ACopyCanBeCancelledWithinAFile) {
  std::string from = scratch_.Make("a.bin", std::string(5'000'000, 'x'));
  std::string to = disk_.MakeTemporary(scratch_ / "b.bin");
  progress_.polls = 1;
  EXPECT_THROW(disk_.Copy(from, to, progress_), CYieldException);
}

TEST_F(WindowsFileDiskTest, MovesAndReplacesOnlyWhenAskedTo) {
  std::string one = scratch_.Make("one", "1"), two = scratch_.Make("two", "2");
  EXPECT_THROW((void)disk_.Move(one, two, false), CFileException);
  EXPECT_EQ(ReadWholeFile(two), "2");
  EXPECT_TRUE(disk_.Move(one, two, true));
  EXPECT_EQ(ReadWholeFile(two), "1");
  EXPECT_FALSE(FileExists(one));
}

TEST_F(WindowsFileDiskTest, ChangesTheCaseOfAName) {
  std::string path = scratch_.Make("name.c", "x");
  EXPECT_TRUE(disk_.Move(path, scratch_ / "Name.C", false));
  EXPECT_EQ(TrueCase(path), scratch_ / "Name.C");
}

TEST_F(WindowsFileDiskTest, KnowsFilesByWhateverName) {
  std::string one = scratch_.Make("one.c", "1"), two = scratch_.Make("two.c", "1");
  EXPECT_TRUE(disk_.IsSame(one, scratch_ / "ONE.C"));
  EXPECT_FALSE(disk_.IsSame(one, two));
  EXPECT_FALSE(disk_.IsSame(one, scratch_ / "none.c"));
  EXPECT_EQ(disk_.State(scratch_ / "none.c"), std::nullopt);
}

TEST_F(WindowsFileDiskTest, RecyclesAndRemoves) {
  std::string one = scratch_.Make("one.c", "1"), two = scratch_.Make("two.c", "2");
  disk_.Recycle(one);
  disk_.Remove(two);
  EXPECT_FALSE(FileExists(one));
  EXPECT_FALSE(FileExists(two));
  EXPECT_THROW(disk_.Recycle(one), CFileException);
}

TEST_F(WindowsFileDiskTest, TellsOfTheDrive) {
  EXPECT_EQ(WindowsFileDisk::Drive(scratch_.Path()).kind, DriveKind::kFixed);
  EXPECT_FALSE(HasRecycleBin(WindowsFileDisk::Drive("q:\\nowhere")));
}

TEST_F(WindowsFileDiskTest, MakesMissingDirectories) {
  MakeDirectories(scratch_ / "a\\b\\c\\");
  EXPECT_TRUE(IsDirectory(scratch_ / "a\\b\\c"));
  MakeDirectories(scratch_ / "a\\b");
  scratch_.Make("file", "x");
  EXPECT_THROW(MakeDirectories(scratch_ / "file\\x"), CFileException);
}

}  // namespace
}  // namespace tarrow
