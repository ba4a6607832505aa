#include "base/path_text.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(PathText, ShowsNamesSeenFromADirectory) {
  struct {
    const char* directory;
    const char* path;
    const char* shown;
  } const kRows[] = {
      {"c:\\src", "c:\\src\\a.c", "a.c"},  {"c:\\src", "c:\\src2\\a.c", "c:\\src2\\a.c"},
      {"C:\\Src", "c:\\src\\a.c", "a.c"},  {"c:\\", "c:\\a.c", "a.c"},
      {"c:\\src", "c:\\src", "c:\\src"},   {"", "c:\\a.c", "c:\\a.c"},
      {"/src", "/src/sub/a.c", "sub/a.c"}, {"c:\\src", "d:\\src\\a.c", "d:\\src\\a.c"},
  };
  for (auto& row : kRows) EXPECT_EQ(NameSeenFrom(row.directory, row.path), row.shown) << row.path;
}

TEST(PathText, ANameSeenFromADirectory) {
  EXPECT_EQ(PathFrom("c:\\src", "a.c"), "c:\\src\\a.c");
  EXPECT_EQ(PathFrom("c:\\", "x\\a.c"), "c:\\x\\a.c");
  for (const char* rooted : {"d:\\a.c", "d:a.c", "\\a.c", "/a.c", "\\\\server\\share\\a.c"})
    EXPECT_EQ(PathFrom("c:\\src", rooted), rooted);
}

}  // namespace
}  // namespace tarrow
