#include "framework/lower_path.h"

#include "base/path_text.h"
#include "framework/unicode.h"
#include "tests/framework/scratch_directory.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace tarrow {
namespace {

// `path` in a form that the system takes letter by letter: Wine's, which names a file as Unix does. Empty on
// other systems.
std::wstring ExactPath(const std::string& path) {
  using UnixName = char*(__cdecl*)(const wchar_t*);
  auto unixName = reinterpret_cast<UnixName>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
  if (!unixName) return {};
  char* directory = unixName(ToWide(WithoutTrailingSeparators(DirectoryPart(path))).c_str());
  if (!directory) return {};
  std::wstring exact =
      ToWide("\\\\?\\unix" + std::string(directory) + "\\" + std::string(FileNamePart(path)));
  HeapFree(GetProcessHeap(), 0, directory);
  for (wchar_t& c : exact)
    if (c == L'/') c = L'\\';
  return exact;
}

// Makes a file, or a directory, beside one whose name differs in case only. False where that cannot be.
bool MakeExactly(const std::string& path, std::string_view bytes, bool isDirectory = false) {
  std::wstring exact = ExactPath(path);
  if (exact.empty()) return false;
  if (isDirectory) return CreateDirectoryW(exact.c_str(), nullptr) != 0;
  HANDLE handle = CreateFileW(exact.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  bool isWritten = WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
  return CloseHandle(handle) && isWritten;
}

class LowerPathTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"a.txt", "A.txt", "Only.txt"})
      if (!MakeExactly(scratch / name, name)) GTEST_SKIP() << "the disk does not tell such names apart";
    lowerScratch = LowerPaths().Lower(scratch.Path());
  }
  std::string Lower(const std::string& name) { return LowerPaths().Lower(scratch / name); }
  ScratchDirectory scratch;
  std::string lowerScratch;
};

TEST_F(LowerPathTest, AnotherFileOfTheSameLettersKeepsThemApart) {
  EXPECT_EQ(lowerScratch, LowerCase(scratch.Path()));
  EXPECT_EQ(Lower("A.txt"), lowerScratch + "\\A.txt");
  EXPECT_EQ(Lower("a.txt"), lowerScratch + "\\a.txt");
  EXPECT_EQ(Lower("Only.txt"), lowerScratch + "\\only.txt");
  EXPECT_EQ(Lower("None.txt"), lowerScratch + "\\none.txt");
  EXPECT_EQ(FullPathLower(scratch / "A.txt"), lowerScratch + "\\A.txt");
  EXPECT_EQ(ReadWholeFile(Lower("A.txt")), "A.txt");
  EXPECT_EQ(ReadWholeFile(Lower("a.txt")), "a.txt");
  EXPECT_EQ(ReadWholeFile(Lower("Only.txt")), "Only.txt");
}

TEST_F(LowerPathTest, DirectoriesAreToldApartToo) {
  ASSERT_TRUE(MakeExactly(scratch / "Sub", "", true));
  ASSERT_TRUE(MakeExactly(scratch / "sub", "", true));
  ASSERT_TRUE(MakeExactly(scratch / "Sub\\One.c", "one"));
  EXPECT_EQ(Lower("Sub\\One.c"), scratch / "Sub\\one.c");
  EXPECT_EQ(Lower("sub\\one.c"), lowerScratch + "\\sub\\one.c");
  EXPECT_EQ(ReadWholeFile(Lower("Sub\\One.c")), "one");
}

TEST_F(LowerPathTest, TheSameForAWholeDirectory) {
  for (int i = 0; i < 30; ++i) (void)scratch.Make("File " + std::to_string(i), "");
  DiskLookup disk;
  for (int round = 0; round < 2; ++round)
    for (const DirectoryEntry& entry : FindFiles(scratch / "*.*"))
      EXPECT_EQ(disk.Lower(scratch / entry.name), Lower(entry.name)) << entry.name;
}

TEST_F(LowerPathTest, TheNameOnTheDiskIsTheOneThatIsExactlyThere) {
  for (const char* name : {"a.txt", "A.txt", "Only.txt"}) EXPECT_EQ(TrueCase(scratch / name), scratch / name);
  EXPECT_EQ(FileNamePart(TrueCase(scratch / "ONLY.TXT")), "Only.txt");
}

}  // namespace
}  // namespace tarrow
