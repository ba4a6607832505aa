#include "search/files/search_fields.h"

#include "base/words.h"
#include "tests/table_disk.h"
#include "tools/file_lists/file_dir.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

using Names = std::vector<std::string>;

SearchRequest Request(std::string text, std::string files, std::string directory = {}) {
  return {std::move(text), std::move(files), std::move(directory)};
}

TEST(SearchFields, NeedSomethingToSearchForAndSomewhere) {
  EXPECT_FALSE(CanSearch({}));
  EXPECT_FALSE(CanSearch(Request("x", "")));
  EXPECT_FALSE(CanSearch(Request("", "*.c")));
  EXPECT_TRUE(CanSearch(Request(" ", "*.c")));
}

struct Picked {
  Names paths;
  const char* files;
  const char* directory;
};

const Picked kPicked[] = {
    {{"c:\\src\\main.c"}, "main.c", "c:\\src"},
    {{"c:\\main.c"}, "main.c", "c:\\"},
    {{"\\\\server\\share\\x.c"}, "x.c", "\\\\server\\share"},
    {{"c:\\my src\\a b.c"}, "\"a b.c\"", "c:\\my src"},
    {{"c:\\src\\a.c", "c:\\src\\b c.c", "c:\\src\\d.c"}, "a.c \"b c.c\" d.c", "c:\\src"},
    {{"c:\\a.c", "c:\\b.c"}, "a.c b.c", "c:\\"},
    {{"c:\\one\\a.c", "c:\\two\\b c.c"}, "c:\\one\\a.c \"c:\\two\\b c.c\"", ""},
};

TEST(SearchFields, ABrowseFillsFilesAndDirectory) {
  for (const Picked& picked : kPicked) {
    SearchRequest request = Request("kept", "old", "old");
    PutPickedFiles(picked.paths, request);
    EXPECT_EQ(request.files, picked.files);
    EXPECT_EQ(request.directory, picked.directory);
    EXPECT_EQ(request.text, "kept");
  }
  SearchRequest untouched = Request("", "*.c", "d");
  PutPickedFiles({}, untouched);
  EXPECT_EQ(untouched.files, "*.c");
}

// What a browse put into the fields is the list of what was picked, blanks in names and all.
TEST(SearchFields, ABrowseAndTheListAgree) {
  for (const Picked& picked : kPicked) {
    TableDisk disk;
    for (const std::string& path : picked.paths) disk.Add(path);
    for (const char* directory : {"c:\\src", "c:\\my src", "c:\\", "\\\\server\\share"})
      disk.Add(directory, kAttributeDirectory);
    if (picked.paths[0].starts_with("\\\\")) continue;  // the table has no servers
    SearchRequest request;
    PutPickedFiles(picked.paths, request);
    CFileDir list(disk);
    list.BuildFromNames(NamesToSearch(request));
    Names found;
    while (const std::string* path = list.Next()) found.push_back(*path);
    EXPECT_EQ(found, picked.paths);
  }
}

TEST(SearchFields, WithoutADirectoryTheFirstWordMayBeOne) {
  EXPECT_EQ(NamesToSearch(Request("", "c:\\src *.c  *.h")), (Names{"c:\\src", "*.c", "*.h"}));
  EXPECT_EQ(NamesToSearch(Request("", "*.c", "c:\\my src")), (Names{"c:\\my src", "*.c"}));
  EXPECT_EQ(NamesToSearch(Request("", "   ")), Names{});
}

TEST(Words, JoinedComeApartAgain) {
  for (const Names& words : {Names{}, Names{"a"}, Names{"a b", "c"}, Names{"x", "  y", "z "}})
    EXPECT_EQ(SplitWords(JoinWords(words)), words);
}

}  // namespace
}  // namespace tarrow
