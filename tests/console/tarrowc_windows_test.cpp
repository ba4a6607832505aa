// What the shell of this system leaves to programs.

#include "program_run.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(TarrowcOnWindows, ExpandsWildcardsAndOpensFilesWithAnyName) {
  TestDirectory directory;
  directory.Write("b.txt", "text b\r\n");
  directory.Write("a.txt", "text a\r\n");
  directory.Write("c.doc", "text c\r\n");
  directory.Write("\xE6\x97\xA5 \xD1\x8F.txt", "text d\r\n");
  std::filesystem::create_directory(directory.Path("dir.txt"));
  ProgramResult result = directory.Run({"search", "text", "*.txt", "?.doc", "*.none"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out,
            "a.txt(1): text a\nb.txt(1): text b\n\xE6\x97\xA5 \xD1\x8F.txt(1): text d\nc.doc(1): text c\n");
  EXPECT_TRUE(result.err.starts_with("tarrowc search: *.none: ")) << result.err;
}

}  // namespace
}  // namespace tarrow
