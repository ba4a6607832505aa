#include "shell/state/command_line.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct Case {
  const char* line;
  std::optional<ArrangeMode> arrange;
  bool editorOnly, print;
  const char* directory;
  const char* initFile;
  const char* files;
};

TEST(CommandLine, Table) {
  constexpr auto none = std::optional<ArrangeMode>();
  const Case cases[] = {
      {"", none, false, false, "", "", ""},
      {"   ", none, false, false, "", "", ""},
      {"a.c b.c  ", none, false, false, "", "", "a.c b.c  "},
      {"-e a.c -p", none, true, false, "", "", "a.c -p"},
      {"/E/P x", none, true, false, "", "", "x"},  // what follows the letter in its word is nothing
      {"-p -e  *.c", none, true, true, "", "", "*.c"},
      {"-av", ArrangeMode::kTileAcross, false, false, "", "", ""},
      {"-aH x", ArrangeMode::kTileDown, false, false, "", "", "x"},
      {"/Acx x", ArrangeMode::kCascade, false, false, "", "", "x"},
      {"-am -ax", ArrangeMode::kMaximised, false, false, "", "", ""},
      {"-a v", none, false, false, "", "", "v"},
      {"-ac -av", ArrangeMode::kTileAcross, false, false, "", "", ""},
      {"-d c:\\src x.c", none, false, false, "c:\\src", "", "x.c"},
      {"-dc:\\src x.c", none, false, false, "c:\\src", "", "x.c"},
      {"-d  \"c:\\my src\" x.c", none, false, false, "c:\\my src", "", "x.c"},
      {"-d\"c:\\my src\" x.c", none, false, false, "c:\\my src", "", "x.c"},
      {"-d -e x", none, false, false, "-e", "", "x"},
      {"-d", none, false, false, "", "", ""},
      {"-i c:\\a.ini -D c:\\b -e", none, true, false, "c:\\b", "c:\\a.ini", ""},
      {"-I\"c:\\un closed x.c", none, false, false, "", "c:\\un closed x.c", ""},
      {"- x", none, false, false, "", "", "x"},
      {"-", none, false, false, "", "", ""},
      {"-z /? -q:\"a b\" -e", none, true, false, "", "", ""},
      {"\"c:\\my docs\\x.c\" y.c", none, false, false, "", "", "\"c:\\my docs\\x.c\" y.c"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line);
    CommandLineOptions options = ParseCommandLine(c.line);
    EXPECT_EQ(options.arrange, c.arrange);
    EXPECT_EQ(options.editorOnly, c.editorOnly);
    EXPECT_EQ(options.print, c.print);
    EXPECT_EQ(options.workingDirectory, c.directory);
    EXPECT_EQ(options.initFile, c.initFile);
    EXPECT_EQ(options.files, c.files);
  }
}

TEST(CommandLine, ProgramNameIsSkipped) {
  EXPECT_EQ(SkipProgramName("tarrow.exe -e x"), " -e x");
  EXPECT_EQ(SkipProgramName("\"c:\\my tools\\tarrow.exe\" x"), " x");
  EXPECT_EQ(SkipProgramName("\"c:\\tarrow.exe"), "");
  EXPECT_EQ(SkipProgramName("tarrow"), "");
  EXPECT_EQ(SkipProgramName(""), "");
}

}  // namespace
}  // namespace tarrow
