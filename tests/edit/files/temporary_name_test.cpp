#include "edit/files/temporary_name.h"

#include "base/path_text.h"
#include "base/utf16.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(TemporaryName, SaysWhichFileItIsOf) {
  EXPECT_EQ(TemporaryName("c:\\src\\Main.c", 0x1A2B), "c:\\src\\Main.c.00001a2b.tarrow");
  EXPECT_EQ(TemporaryName("makefile", 0xFFFFFFFF), "makefile.ffffffff.tarrow");
  for (const char* path : {"c:\\src\\Main.c", "makefile", "z:\\a.b\\c.tarrow", "c:\\x y.\xD0\x96"})
    EXPECT_EQ(TargetOfTemporary(TemporaryName(path, 77)), path);
}

TEST(TemporaryName, OtherNamesAreNoneOfOurs) {
  for (const char* path : {"", "c:\\main.c", "main.c.tarrow", "main.c.0000000g.tarrow",
                           "main.c.0000000A.tarrow", "main.c00000000.tarrow", "c:\\dir\\.00000000.tarrow",
                           "a.00000000.tarrow.c", "00000000.tarrow", ".tarrow"})
    EXPECT_EQ(TargetOfTemporary(path), "") << path;
}

// For directories and names of any length, in letters of one and of two bytes.
TEST(TemporaryName, KeepsWithinWhatADiskTakes) {
  for (const char* letter : {"x", "\xD0\x96"}) {
    for (std::size_t directory = 0; directory < 240; directory += 7) {
      for (std::size_t length = 1; directory + length < kMaxPath - 4; length += 5) {
        std::string path = "c:\\" + std::string(directory, 'd') + "\\";
        for (std::size_t i = 0; i < length; ++i) path += letter;
        std::string temporary = TemporaryName(path, 9);
        ASSERT_LT(Utf8ToUtf16<char16_t>(temporary).size(), kMaxPath);
        ASSERT_LE(FileNamePart(temporary).size(), 255u);
        ASSERT_TRUE(IsUtf8(temporary));
        ASSERT_TRUE(path.starts_with(TargetOfTemporary(temporary)));
        bool isCut = path.size() >= 240 || FileNamePart(path).size() >= 239;
        ASSERT_TRUE(isCut || TargetOfTemporary(temporary) == path) << path;
      }
    }
  }
}

TEST(TemporaryName, ADirectoryWithoutRoomGivesAPathThatIsTooLong) {
  std::string path = std::string(250, 'd') + "\\name.c";
  EXPECT_GE(TemporaryName(path, 1).size(), kMaxPath);
}

}  // namespace
}  // namespace tarrow
