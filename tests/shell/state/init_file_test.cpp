#include "shell/state/init_file.h"

#include "tests/table_disk.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(InitFile, HomeDirectory) {
  EXPECT_EQ(HomeDirectory("D:\\TOOLS\\tarrow.exe"), "D:\\TOOLS\\");
  EXPECT_EQ(HomeDirectory("D:\\TOOLS\\nt\\tarrow.exe"), "D:\\TOOLS\\");
  EXPECT_EQ(HomeDirectory("D:\\TOOLS\\NT\\tarrow.exe"), "D:\\TOOLS\\NT\\");
  EXPECT_EQ(HomeDirectory("D:\\print\\tarrow.exe"), "D:\\pri");
  EXPECT_EQ(HomeDirectory("tarrow.exe"), "");
}

class InitFileTest : public testing::Test {
 protected:
  InitFileTest() {
    disk.Add("c:\\conf", kAttributeDirectory);
    disk.Add("c:\\conf\\my.ini");
    disk.Add("c:\\work", kAttributeDirectory);
  }
  std::string Find(std::string_view named) { return FindInitFile(disk, named, "c:\\home\\"); }
  TableDisk disk;
};

TEST_F(InitFileTest, Named) {
  EXPECT_EQ(Find("c:\\conf\\my.ini"), "c:\\conf\\my.ini");
  EXPECT_EQ(Find("c:\\conf"), "c:\\conf\\tarrow.ini");
  EXPECT_EQ(Find("c:\\conf\\"), "c:\\conf\\tarrow.ini");
  EXPECT_EQ(Find("c:\\"), "c:\\tarrow.ini");
  EXPECT_EQ(Find("c:\\conf\\missing.ini"), "c:\\conf");  // the directory stands for the missing file
  EXPECT_EQ(Find("c:\\nowhere\\missing.ini"), "c:\\home\\tarrow.ini");
  EXPECT_EQ(Find("missing.ini"), "c:\\home\\tarrow.ini");
}

TEST_F(InitFileTest, AHomeWithoutABackslashIsTheBeginningOfAName) {
  EXPECT_EQ(FindInitFile(disk, "", HomeDirectory("D:\\print\\tarrow.exe")), "D:\\pritarrow.ini");
}

TEST_F(InitFileTest, CurrentDirectoryOrHome) {
  EXPECT_EQ(Find(""), "c:\\home\\tarrow.ini");
  const struct {
    std::uint32_t attributes;
    bool taken;
  } cases[] = {{kAttributeArchive, true},
               {kAttributeNormal, true},
               {0, true},
               {kAttributeReadOnly, false},
               {kAttributeHidden | kAttributeArchive, false},
               {kAttributeSystem, false},
               {kAttributeDirectory, false}};
  for (auto& c : cases) {
    disk.Add("c:\\work\\tarrow.ini", c.attributes);
    EXPECT_EQ(Find(""), c.taken ? "c:\\work\\tarrow.ini" : "c:\\home\\tarrow.ini") << c.attributes;
  }
}

}  // namespace
}  // namespace tarrow
