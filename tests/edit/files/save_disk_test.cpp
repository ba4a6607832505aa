// Saving on the real disk, in each of the ways in which a file can come by its new bytes.
#include "edit/files/save_disk.h"

#include "base/path_text.h"
#include "edit/files/save_leftovers.h"
#include "edit/files/temporary_name.h"
#include "framework/unicode.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace tarrow {
namespace {

class SaveDiskTest : public testing::TestWithParam<WindowsSaveDisk::Way> {
 protected:
  void Save(const std::string& path, std::string_view text, bool backup = false) {
    WindowsSaveDisk disk(GetParam());
    SafeSave(disk, path, {backup, [&](const CFileException&) { ++backupFailures; }},
             [&](ByteSink& out) { out.Write(text); });
  }
  FileCause CauseOfSaving(const std::string& path) {
    try {
      Save(path, "never");
    } catch (const CFileException& error) {
      EXPECT_EQ(error.Path(), path);
      return error.Cause();
    }
    ADD_FAILURE() << "nothing was thrown";
    return FileCause::kGeneric;
  }
  // Wine leaves an empty file of its own (rf*.tmp) behind every replacement that fails; they are not ours.
  std::size_t FileCount() {
    return FindFiles(scratch / "*").size() - 2 - FindFiles(scratch / "rf*.tmp").size();
  }

  ScratchDirectory scratch;
  int backupFailures = 0;
};

TEST_P(SaveDiskTest, NewFile) {
  Save(scratch / "New File.c", "text");
  EXPECT_EQ(ReadWholeFile(scratch / "new file.c"), "text");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_P(SaveDiskTest, FindsItsOwnTemporariesAndNothingElse) {
  std::string path = scratch.Make("Mixed.c", "x");
  for (const char* other :
       {"mixed.c.txt", "mixed.c.0123456.tarrow", "mixed.c.0123456G.tarrow", "other.c.01234567.tarrow"})
    scratch.Make(other, "x");
  scratch.Make("MIXED.C.01234567.tarrow", "x");
  WindowsSaveDisk disk(GetParam());
  std::string made = disk.MakeTemporary(path);
  EXPECT_EQ(disk.Temporaries(LowerCase(path)).size(), 2u);
  EXPECT_TRUE(disk.Temporaries(scratch / "").empty());
  EXPECT_TRUE(disk.Temporaries("").empty());
  RemoveLeftovers(disk, LowerCase(path));
  EXPECT_FALSE(FileExists(made));
  EXPECT_EQ(FileCount(), 5u);
}

TEST_P(SaveDiskTest, NameKeepsItsCaseAndTheFileItsAttributes) {
  std::string path = scratch.Make("MixedCase.C", "old");
  ChangeAttributes(path, kAttributeHidden | kAttributeArchive);
  Save(LowerCase(path), "new text");
  EXPECT_EQ(ReadWholeFile(path), "new text");
  EXPECT_EQ(FileNamePart(TrueCase(LowerCase(path))), "MixedCase.C");
  EXPECT_EQ(GetFileStatus(path)->attributes & kAttributeHidden, kAttributeHidden);
  EXPECT_EQ(FileCount(), 1u);
}

TEST_P(SaveDiskTest, BackupTakesTheOldBytes) {
  std::string path = scratch.Make("a.c", "old");
  Save(path, "new", true);
  EXPECT_EQ(ReadWholeFile(scratch / "a.BAK"), "old");
  Save(path, "newer", true);
  EXPECT_EQ(ReadWholeFile(scratch / "a.bak"), "new");
  EXPECT_EQ(ReadWholeFile(path), "newer");
  Save(scratch / "a.bak", "itself", true);
  EXPECT_EQ(ReadWholeFile(scratch / "a.bak"), "itself");
  EXPECT_EQ(FileCount(), 2u);
  EXPECT_EQ(backupFailures, 0);
}

TEST_P(SaveDiskTest, BackupThatCannotBeMadeIsReported) {
  std::string path = scratch.Make("a.c", "old");
  MakeDirectory(scratch / "a.BAK");
  Save(path, "new", true);
  EXPECT_EQ(backupFailures, 1);
  EXPECT_EQ(ReadWholeFile(path), "new");
  EXPECT_EQ(FileCount(), 2u);
}

TEST_P(SaveDiskTest, HardLinksStayLinks) {
  std::string path = scratch.Make("one.c", "old"), other = scratch / "two.c";
  ASSERT_TRUE(CreateHardLinkW(ToWide(other).c_str(), ToWide(path).c_str(), nullptr));
  Save(path, "shorter or longer", true);
  EXPECT_EQ(ReadWholeFile(other), "shorter or longer");
  EXPECT_EQ(ReadWholeFile(scratch / "one.BAK"), "old");
  Save(path, "x");
  EXPECT_EQ(ReadWholeFile(other), "x");
}

TEST_P(SaveDiskTest, RefusedTargets) {
  std::string readOnly = scratch.Make("r", "old");
  ChangeAttributes(readOnly, kAttributeReadOnly);
  EXPECT_EQ(CauseOfSaving(readOnly), FileCause::kAccessDenied);
  EXPECT_EQ(ReadWholeFile(readOnly), "old");
  EXPECT_EQ(CauseOfSaving(scratch.Path()), FileCause::kAccessDenied);
  EXPECT_EQ(CauseOfSaving(scratch / "none\\x"), FileCause::kBadPath);
  EXPECT_EQ(CauseOfSaving(scratch / "a?b"), FileCause::kBadPath);
  EXPECT_EQ(CauseOfSaving(scratch / std::string(260, 'x')), FileCause::kBadPath);
  EXPECT_EQ(FileCount(), 1u);
}

TEST_P(SaveDiskTest, FileHeldOpen) {
  std::string path = scratch.Make("held", "old");
  {
    CFile reader(path, CFile::Mode::kRead, CFile::Share::kRead);
    EXPECT_EQ(CauseOfSaving(path), FileCause::kSharingViolation);
  }
  EXPECT_EQ(ReadWholeFile(path), "old");
  {
    CFile reader(path, CFile::Mode::kRead, CFile::Share::kReadWrite);
    Save(path, "new");
  }
  EXPECT_EQ(ReadWholeFile(path), "new");
  EXPECT_EQ(FileCount(), 1u);
}

TEST_P(SaveDiskTest, DeviceTakesTheText) {
  Save("NUL", "gone", true);
  EXPECT_EQ(FileCount(), 0u);
}

TEST_P(SaveDiskTest, DeviceThatIsAlwaysFull) {
  const char* full = "z:\\dev\\full";  // there is one under Wine
  try {
    CFile(full, CFile::Mode::kUpdate, CFile::Share::kReadWrite).Close();
  } catch (const CFileException&) {
    GTEST_SKIP() << "no such device";
  }
  EXPECT_EQ(CauseOfSaving(full), FileCause::kDiskFull);
}

TEST_P(SaveDiskTest, NameOutsideTheCodePageAndLargeText) {
  std::string path = scratch / "\xE6\x96\x87 \xD0\xA9.txt";
  std::string large(3'000'000, 'x');
  Save(path, "small");
  Save(path, large);
  EXPECT_TRUE(ReadWholeFile(path) == large);
  Save(path, "small again");
  EXPECT_EQ(ReadWholeFile(path), "small again");
}

// A directory whose path leaves no room for the name of a temporary file takes none.
TEST_P(SaveDiskTest, DirectoryThatTakesNoNewFile) {
  std::string directory = scratch.Path();
  while (directory.size() < 256 - 100) MakeDirectory(directory += "\\" + std::string(50, 'd'));
  MakeDirectory(directory += "\\" + std::string(256 - directory.size() - 1, 'e'));
  std::string path = directory + "\\f";
  CFile(path, CFile::Mode::kCreateNew, CFile::Share::kNothing).Close();
  for (const char* text : {"text", "longer text", ""}) {
    Save(path, text);
    EXPECT_EQ(ReadWholeFile(path), text);
  }
  EXPECT_EQ(CauseOfSaving(directory + "\\new name"), FileCause::kBadPath);
  EXPECT_EQ(FindFiles(directory + "\\*").size(), 3u);
}

TEST_P(SaveDiskTest, TemporaryFileSaysWhoseItIs) {
  WindowsSaveDisk disk(GetParam());
  std::string path = scratch.Make("Main.c", "old");
  std::string one = disk.MakeTemporary(path), other = disk.MakeTemporary(path);
  EXPECT_NE(one, other);
  EXPECT_EQ(TargetOfTemporary(one), path);
  EXPECT_EQ(TargetOfTemporary(other), path);
  EXPECT_EQ(FileCount(), 3u);
}

INSTANTIATE_TEST_SUITE_P(EveryWay, SaveDiskTest,
                         testing::Values(WindowsSaveDisk::Way::kReplace, WindowsSaveDisk::Way::kMove,
                                         WindowsSaveDisk::Way::kOverwrite));

}  // namespace
}  // namespace tarrow
