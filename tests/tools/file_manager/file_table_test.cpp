#include "tools/file_manager/file_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tarrow {
namespace {

ListedFile Listed(std::string path, std::string name, std::uint64_t size, std::uint64_t modified,
                  std::uint32_t attributes = kAttributeArchive) {
  return {std::move(path), {std::move(name), attributes, size, modified}};
}

std::string Names(const FileTable& table) {
  std::string names;
  for (std::size_t i = 0; i < table.Size(); ++i) names += table.Name(i) + " ";
  return names;
}

class FileTableTest : public testing::Test {
 protected:
  FileTableTest() {
    table.Assign(
        {Listed("c:\\work\\a.c", "A.c", 30, 5), Listed("c:\\work\\b.c", "b.c", 10, 7, kAttributeReadOnly),
         Listed("c:\\work\\gone.c", "", 0, 0), Listed("c:\\work\\sub\\z.c", "Z.c", 10, 6),
         Listed("d:\\x.c", "x.c", 20, 5)},
        "c:\\work");
  }
  FileTable table;
};

TEST_F(FileTableTest, ShowsWhatExistsAsSeenFromTheDirectory) {
  EXPECT_EQ(Names(table), "A.c b.c sub\\Z.c d:\\x.c ");
  EXPECT_EQ(table.Path(0), "c:\\work\\A.c");
  EXPECT_EQ(table[0].path, "c:\\work\\a.c");
  EXPECT_EQ(table.TotalSize(), 70u);
}

TEST_F(FileTableTest, SortsByEachColumnWithTheNamesBelow) {
  struct Case {
    FileColumn column;
    bool descending;
    const char* names;
  };
  constexpr Case kCases[] = {
      {FileColumn::kName, true, "d:\\x.c sub\\Z.c b.c A.c "},
      {FileColumn::kSize, false, "b.c sub\\Z.c d:\\x.c A.c "},
      {FileColumn::kSize, true, "A.c d:\\x.c b.c sub\\Z.c "},
      {FileColumn::kModified, false, "A.c d:\\x.c sub\\Z.c b.c "},
      {FileColumn::kAttributes, false, "A.c sub\\Z.c d:\\x.c b.c "},
  };
  for (const Case& c : kCases) {
    table.SortBy(c.column, c.descending);
    EXPECT_EQ(Names(table), c.names);
  }
}

TEST_F(FileTableTest, FindsFilesInAnyOrder) {
  table.SortBy(FileColumn::kSize, true);
  using Rows = std::vector<std::size_t>;
  for (std::size_t i = 0; i < table.Size(); ++i) EXPECT_EQ(table.RowsOf({table[i].path}), Rows{i});
  EXPECT_EQ(table.RowsOf({"c:\\work\\a.c", "c:\\work\\b.c", "c:\\work\\gone.c", "d:\\x.c"}), (Rows{0, 1, 2}));
  EXPECT_EQ(table.RowsOf({"a", "z"}), Rows{});
  EXPECT_EQ(table.FindName("B", 0), 2u);
  EXPECT_EQ(table.FindName("a", 1), 0u) << "going round";
  EXPECT_EQ(table.FindName("q", 0), std::nullopt);
  EXPECT_EQ(FileTable().FindName("a", 0), std::nullopt);
}

TEST_F(FileTableTest, SortingTellsWhereRowsHaveGone) {
  using Rows = std::vector<std::size_t>;
  ASSERT_EQ(Names(table), "A.c b.c sub\\Z.c d:\\x.c ");
  EXPECT_EQ(table.SortBy(FileColumn::kSize, false, {0, 2}), (Rows{1, 3})) << "b.c sub\\Z.c d:\\x.c A.c";
  EXPECT_EQ(table.SortBy(FileColumn::kSize, true, {0, 1, 2, 3}), (Rows{0, 1, 2, 3}));
  EXPECT_EQ(table.SortBy(FileColumn::kName, false, {}), Rows{});
}

TEST_F(FileTableTest, AssigningKeepsTheOrderAskedFor) {
  table.SortBy(FileColumn::kSize, true);
  table.Assign({Listed("c:\\a", "a", 1, 1), Listed("c:\\b", "b", 2, 1)}, "c:\\");
  EXPECT_EQ(Names(table), "b a ");
}

TEST(FileTable, SortsAHundredThousandFilesRightly) {
  std::mt19937 random(1);
  std::vector<ListedFile> files;
  for (int i = 0; i < 100000; ++i)
    files.push_back(
        Listed("c:\\f" + std::to_string(i), "f" + std::to_string(i), random() % 1000, random() % 10));
  std::ranges::sort(files, {}, &ListedFile::path);
  FileTable table;
  table.Assign(files, "c:\\");
  table.SortBy(FileColumn::kModified, true);
  for (std::size_t i = 1; i < table.Size(); ++i) {
    const ListedFile &above = table[i - 1], &below = table[i];
    ASSERT_TRUE(above.entry.modified > below.entry.modified ||
                (above.entry.modified == below.entry.modified && above.path < below.path));
  }
}

TEST(FileTable, AttributesAsLetters) {
  EXPECT_EQ(AttributeLetters(kAttributeNormal), "");
  EXPECT_EQ(AttributeLetters(0x27), "RHSA");
  EXPECT_EQ(AttributeLetters(kAttributeReadOnly | kAttributeArchive), "RA");
}

}  // namespace
}  // namespace tarrow
