#include "shell/state/settings_files.h"

#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(SettingsFiles, ReadsAndWritesSafelyOnTheDisk) {
  ScratchDirectory scratch;
  WindowsSettingsDisk disk;
  std::string path = scratch / "New\\tarrow.ini";
  EXPECT_EQ(disk.Read(path), std::nullopt);
  disk.Write(path, "[S]\r\n");  // with its directory
  EXPECT_EQ(disk.Read(path), "[S]\r\n");
  EXPECT_TRUE(disk.CanWrite(path));
  EXPECT_TRUE(disk.CanWrite(scratch / "other.ini"));
  EXPECT_EQ(FindFiles(scratch / "New\\*").size(), 3u) << "something was left behind";
  EXPECT_FALSE(disk.CanWrite(scratch / "none\\tarrow.ini"));
  EXPECT_FALSE(disk.CanWrite(scratch.Path()));
  EXPECT_THROW((void)disk.Read(scratch.Path()), CFileException);
  ChangeAttributes(path, kAttributeReadOnly);
  EXPECT_FALSE(disk.CanWrite(path));
  EXPECT_THROW(disk.Write(path, "x"), CFileException);
  EXPECT_EQ(disk.Read(path), "[S]\r\n");
}

TEST(SettingsFiles, EntersAProject) {
  ScratchDirectory scratch;
  std::string before = WorkingDirectory();
  DiskSettingsFiles files;
  EXPECT_FALSE(files.EnterProject(scratch / "none"));
  EXPECT_TRUE(files.EnterProject(scratch.Path()));
  files.WriteProject((files.ReadProject(), IniText("[Project]\r\n")));
  EXPECT_EQ(ReadWholeFile(scratch / "tarrow.ini"), "[Project]\r\n");
  ChangeWorkingDirectory(before);
}

}  // namespace
}  // namespace tarrow
