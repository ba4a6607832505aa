#include "framework/file_system.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "framework/unicode.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarrow {
namespace {

TEST(FileSystem, Status) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("A b.TXT", "12345");
  auto status = GetFileStatus(path);
  ASSERT_TRUE(status);
  EXPECT_EQ(status->size, 5u);
  EXPECT_EQ(status->fullName, path);
  EXPECT_FALSE(status->IsDirectory());
  EXPECT_NE(status->modified, 0u);
  EXPECT_TRUE(GetFileStatus(scratch.Path())->IsDirectory());
  EXPECT_TRUE(GetFileStatus("c:")->IsDirectory());
  EXPECT_TRUE(GetFileStatus("c:\\")->IsDirectory());
  for (const char* none : {"", "NUL", "CON", "5:", "5:\\", "?", "c:\\no such\\file"})
    EXPECT_FALSE(GetFileStatus(none)) << none;
  EXPECT_FALSE(FileExists(scratch / "none"));
  EXPECT_FALSE(FileExists(std::string(500, 'x')));
}

TEST(FileSystem, Directories) {
  ScratchDirectory scratch;
  std::string file = scratch.Make("x", "");
  EXPECT_TRUE(IsDirectory(scratch.Path()));
  EXPECT_TRUE(IsDirectory("c:"));
  EXPECT_TRUE(IsDirectory("c:."));
  EXPECT_FALSE(IsDirectory("5:"));
  EXPECT_FALSE(IsDirectory(file));
  EXPECT_FALSE(IsDirectory(scratch / "*"));
}

TEST(FileSystem, NamesKeepTheirCaseOnDisk) {
  ScratchDirectory scratch;
  std::string path = scratch.Make("MixedCase.Txt", "");
  EXPECT_EQ(FileNamePart(TrueCase(LowerCase(path))), "MixedCase.Txt");
  EXPECT_EQ(TrueCase(scratch / "none"), scratch / "none");
  EXPECT_EQ(FullPathLower(path), LowerCase(path));
  EXPECT_THROW((void)FullPath(std::string(300, 'x')), CFileException);
  EXPECT_THROW((void)FullPath("NUL"), CFileException);
}

TEST(FileSystem, TrueCasePathHasEveryComponentAsTheDiskHasIt) {
  ScratchDirectory scratch;
  std::string directory = scratch / "Mixed Dir";
  MakeDirectory(directory);
  std::string file = scratch.Make("Mixed Dir\\File.TXT", "");
  EXPECT_EQ(TrueCasePath(LowerCase(file)), file);
  EXPECT_EQ(TrueCasePath(LowerCase(directory) + "\\None.txt"), directory + "\\None.txt");
  EXPECT_EQ(TrueCasePath("File1"), "File1");
}

TEST(FileSystem, Find) {
  ScratchDirectory scratch;
  (void)scratch.Make("one.c", "");
  (void)scratch.Make("two.c", "");
  (void)scratch.Make("three.h", "");
  EXPECT_EQ(FindFiles(scratch / "*.c").size(), 2u);
  EXPECT_EQ(FindFiles(scratch / "*").size(), 5u);  // with . and ..
  EXPECT_TRUE(FindFiles(scratch / "*.x").empty());
  EXPECT_TRUE(FindFiles("").empty());
  ASSERT_EQ(FindFiles(scratch / "ONE.C").size(), 1u);
  EXPECT_EQ(FindFiles(scratch / "ONE.C")[0].name, "one.c");
}

TEST(FileSystem, Operations) {
  ScratchDirectory scratch;
  std::string a = scratch.Make("a", "bytes"), b = scratch / "b";
  RenameFile(a, b);
  EXPECT_FALSE(FileExists(a));
  EXPECT_EQ(ReadWholeFile(b), "bytes");
  DuplicateFile(b, a, false);
  EXPECT_EQ(ReadWholeFile(a), "bytes");
  EXPECT_THROW(RenameFile(a, b), CFileException);
  EXPECT_THROW(DuplicateFile(a, b, false), CFileException);
  constexpr std::uint64_t kNewYear2000 = 125911584000000000;
  ChangeModifiedTime(a, kNewYear2000);
  EXPECT_EQ(GetFileStatus(a)->modified, kNewYear2000);
  ChangeAttributes(a, kAttributeReadOnly);
  EXPECT_EQ(GetFileStatus(a)->attributes & kAttributeReadOnly, kAttributeReadOnly);
  RemoveFile(b);
  EXPECT_THROW(RemoveFile(b), CFileException);
  MakeDirectory(scratch / "sub");
  EXPECT_TRUE(IsDirectory(scratch / "sub"));
  EXPECT_THROW(MakeDirectory(scratch / "sub"), CFileException);
}

TEST(FileSystem, WorkingDirectoryAndTemporaryNames) {
  ScratchDirectory scratch;
  std::string before = WorkingDirectory();
  ChangeWorkingDirectory(scratch.Path());
  EXPECT_EQ(WorkingDirectory(), LowerCase(scratch.Path()));
  EXPECT_THROW(ChangeWorkingDirectory(scratch / "none"), CFileException);
  ChangeWorkingDirectory(before);

  std::string plain = MakeTempName(), named = MakeTempName("txt"), again = MakeTempName("txt");
  EXPECT_TRUE(plain.starts_with(TemporaryDirectory()));
  EXPECT_TRUE(named.ends_with(".txt"));
  EXPECT_NE(named, again);
  for (const std::string& name : {plain, named, again}) {
    EXPECT_TRUE(FileExists(name));
    RemoveFile(name);
  }
  EXPECT_TRUE(FileExists(ProgramPath()));
  EXPECT_TRUE(ApplicationDataDirectory().ends_with("\\"));
}

TEST(FileSystem, AUniqueFileIsCreatedOrTheFailureTold) {
  ScratchDirectory scratch;
  scratch.Make("taken", "old");
  int asked = 0;
  std::string path =
      CreateUniqueFile([&](std::uint32_t) { return scratch / (++asked < 3 ? "taken" : "free"); });
  EXPECT_EQ(path, scratch / "free");
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(ReadWholeFile(path), "");
  EXPECT_EQ(ReadWholeFile(scratch / "taken"), "old");
  EXPECT_THROW((void)CreateUniqueFile([&](std::uint32_t) { return scratch / "none\\x"; }), CFileException);
}

}  // namespace
}  // namespace tarrow
