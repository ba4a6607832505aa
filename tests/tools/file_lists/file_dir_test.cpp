#include "tools/file_lists/file_dir.h"

#include "base/exceptions.h"
#include "tests/table_disk.h"

#include <gtest/gtest.h>

#include <chrono>
#include <new>

namespace tarrow {
namespace {

using Paths = std::vector<std::string>;

Paths PathsOf(const CFileDir& list) {
  Paths paths;
  for (const ListedFile& file : list.Files()) paths.push_back(file.path);
  return paths;
}

class FileDirTest : public testing::Test {
 protected:
  FileDirTest() {
    disk.Add("c:\\src", kAttributeDirectory);
    disk.Add("c:\\src\\Main.c");
    disk.Add("c:\\src\\util.C");
    disk.Add("c:\\src\\util.h");
    disk.Add("c:\\src\\old.c", kAttributeDirectory);
    disk.Add("c:\\work", kAttributeDirectory);
    disk.Add("c:\\work\\a.c");
    disk.Add("c:\\work\\b.c");
    disk.Add("c:\\work\\my name.c");
  }
  Paths Build(std::initializer_list<std::string_view> strings) {
    CFileDir list(disk);
    std::size_t count = list.Build(strings);
    EXPECT_EQ(count, list.Files().size());
    return PathsOf(list);
  }
  TableDisk disk;
};

TEST_F(FileDirTest, DirectoryAndPatterns) {
  Paths sources = {"c:\\src\\main.c", "c:\\src\\util.c", "c:\\src\\util.h"};
  EXPECT_EQ(Build({"c:\\src *.c *.h"}), sources);
  EXPECT_EQ(Build({"c:\\src", "*.c *.h util.?"}), sources);  // each path once
  EXPECT_EQ(Build({"  c:\\src\\\\   *.c  *.h "}), sources);
  EXPECT_EQ(Build({"c:\\src\\*.*"}), sources);
}

TEST_F(FileDirTest, FirstWordThatIsNoDirectoryIsAName) {
  EXPECT_EQ(Build({"b.c a.c"}), (Paths{"c:\\work\\a.c", "c:\\work\\b.c"}));
  EXPECT_EQ(Build({"z:\\x a.c"}), (Paths{"c:\\work\\a.c", "z:\\x"}));
}

TEST_F(FileDirTest, NamesThatFindNothingAreKeptInLowerCase) {
  EXPECT_EQ(Build({"NewFile.C"}), (Paths{"newfile.c"}));
  EXPECT_EQ(Build({"c:\\src New.C"}), (Paths{"c:\\src\\new.c"}));
  EXPECT_EQ(Build({"*.XYZ"}), Paths{}) << "the wildcard finds . and .. only";
}

TEST_F(FileDirTest, OneDirectoryListsNothing) {
  EXPECT_EQ(Build({"c:\\src"}), Paths{});
  EXPECT_EQ(Build({"c:\\src old.*"}), Paths{});
}

TEST_F(FileDirTest, KeepsWhatTheDiskSaysOfAFile) {
  CFileDir list(disk);
  list.Build({"c:\\src util.C gone.c"});
  ASSERT_EQ(list.Files().size(), 2u);
  EXPECT_EQ(list.Files()[0].entry.name, "") << "nothing was found";
  EXPECT_EQ(list.Files()[1].entry.name, "util.C");
  EXPECT_EQ(list.Files()[1].entry.attributes, kAttributeArchive);
}

TEST_F(FileDirTest, DrivesAsDirectories) {
  EXPECT_EQ(Build({"c: a.c"}), (Paths{"c:\\work\\a.c"}));
  EXPECT_EQ(Build({"c:\\ src\\*.h"}), (Paths{"c:\\src\\util.h"}));
}

TEST_F(FileDirTest, BlanksInNames) {
  EXPECT_EQ(Build({"\"my name.c\""}), (Paths{"c:\\work\\my name.c"}));
  EXPECT_EQ(Build({"my name.c"}), (Paths{"my", "name.c"}));
  EXPECT_EQ(Build({""}), Paths{});
  EXPECT_EQ(Build({"   ", " "}), Paths{});
  CFileDir list(disk);
  EXPECT_EQ(list.BuildFromNames({"my name.c"}), 1u);
  EXPECT_EQ(PathsOf(list), (Paths{"c:\\work\\my name.c"}));
}

TEST_F(FileDirTest, NextWalksAndBuildStartsAgain) {
  CFileDir list(disk);
  list.Build({"b.c a.c"});
  EXPECT_EQ(*list.Next(), "c:\\work\\a.c");
  EXPECT_EQ(*list.Next(), "c:\\work\\b.c");
  EXPECT_EQ(list.Next(), nullptr);
  list.Build({"a.c"});
  EXPECT_EQ(*list.Next(), "c:\\work\\a.c");
  EXPECT_EQ(list.Next(), nullptr);
}

TEST_F(FileDirTest, OrderIsThatOfUnsignedBytes) {
  EXPECT_EQ(Build({"z \xC3\xA4 a ~"}), (Paths{"a", "z", "~", "\xC3\xA4"}));
}

TEST_F(FileDirTest, PathBeyondTheLimitIsKeptAsItWasJoined) {
  std::string deep = "c:\\" + std::string(300, 'd') + "\\";
  disk.Add(deep + "x.c");
  EXPECT_EQ(Build({deep + "*.c"}), (Paths{deep + "x.c"}));
}

TEST_F(FileDirTest, OutOfMemoryLeavesNoList) {
  struct : TableDisk {
    void Find(std::string_view pattern, Progress*, const EntryUse&) override {
      if (pattern == "b.c") throw std::bad_alloc();
    }
  } failing;
  CFileDir list(failing);
  EXPECT_THROW(list.Build({"a.c b.c"}), CMemoryException);
  EXPECT_TRUE(list.Files().empty());
  EXPECT_EQ(list.Next(), nullptr);
}

TEST_F(FileDirTest, NamesThatDifferInCaseOnlyKeepIt) {
  disk.Add("c:\\src\\UTIL.C");
  EXPECT_EQ(Build({"c:\\src *.c *.h util.?"}),
            (Paths{"c:\\src\\UTIL.C", "c:\\src\\main.c", "c:\\src\\util.C", "c:\\src\\util.h"}));
}

// A directory without an end, or nearly so: a test that fails must end.
class EndlessDisk final : public TableDisk {
 public:
  void Find(std::string_view, Progress* progress, const EntryUse& use) override {
    EXPECT_EQ(progress, expected);
    auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (int i = 0; std::chrono::steady_clock::now() < limit; ++i)
      use({.name = "f" + std::to_string(i), .attributes = kAttributeArchive});
    ADD_FAILURE() << "nobody was asked";
  }
  Progress* expected = nullptr;
};

struct Impatient final : Progress {
  void Poll() override { throw CYieldException(); }
};

TEST(FileDir, ListingEndsWhereTheProgressThrows) {
  Impatient progress;
  EndlessDisk disk;
  disk.expected = &progress;
  CFileDir list(disk, &progress);
  EXPECT_THROW(list.Build({"c:\\src\\*.*"}), CYieldException);
  EXPECT_TRUE(list.Files().empty());
}

}  // namespace
}  // namespace tarrow
