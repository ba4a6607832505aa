#include "base/version.h"
#include "program_run.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarrow {
namespace {

class Tarrowc : public testing::Test {
 protected:
  void Expect(const std::vector<std::string>& arguments, int exitCode, std::string_view out,
              std::string_view err = {}, std::string_view input = {}) {
    ProgramResult result = directory.Run(arguments, input);
    std::string command = testing::PrintToString(arguments);
    EXPECT_EQ(result.exitCode, exitCode) << command;
    EXPECT_EQ(result.out, out) << command;
    EXPECT_EQ(result.err, err) << command;
  }

  TestDirectory directory;
};

TEST_F(Tarrowc, ExplainsItselfAndEveryCommand) {
  ProgramResult help = directory.Run({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_EQ(help.err, "");
  for (const char* command : {"search", "compare", "strings", "lines", "hex"}) {
    EXPECT_NE(help.out.find(std::string("  ") + command + " "), std::string::npos);
    ProgramResult more = directory.Run({command, "--help"});
    EXPECT_EQ(more.exitCode, 0);
    EXPECT_TRUE(more.out.starts_with(std::string("Usage: tarrowc ") + command));
    // Every row of help has its text, and every line fits a terminal.
    EXPECT_EQ(more.out.find(" \n"), std::string::npos) << more.out;
  }
  EXPECT_EQ(directory.Run({}).exitCode, 2);
  EXPECT_EQ(directory.Run({}).err, help.out);
  // The number itself stands in one place of the program and in no second one.
  EXPECT_TRUE(directory.Run({"--version"}).out.starts_with("tarrowc " TARROW_VERSION));
}

TEST_F(Tarrowc, TellsWhatIsWrongWithACommandLine) {
  directory.Write("f", "text\n");
  Expect({"serach"}, 2, "", "tarrowc: unknown command 'serach'; see tarrowc --help\n");
  Expect({"search", "x"}, 2, "", "tarrowc search: PATTERN FILE... expected; see tarrowc search --help\n");
  Expect({"compare", "f"}, 2, "", "tarrowc compare: FILE1 FILE2 expected; see tarrowc compare --help\n");
  Expect({"hex", "f", "f"}, 1, "", "tarrowc hex: FILE expected; see tarrowc hex --help\n");
  Expect({"search", "-q", "x", "f"}, 2, "",
         "tarrowc search: unknown option '-q'; see tarrowc search --help\n");
  Expect({"search", "[a", "f"}, 2, "",
         "tarrowc search: '[a': Invalid regular expression; see tarrowc search --help\n");
  Expect({"strings", "-e", "x\\(", "f"}, 1, "",
         "tarrowc strings: 'x\\(': Unmatched '\\('; see tarrowc strings --help\n");
  Expect({"lines", "-n", "many", "f"}, 1, "",
         "tarrowc lines: 'many' is no number from 0 to 2147483647; see tarrowc lines --help\n");
}

TEST_F(Tarrowc, SearchesAsGrepDoes) {
  directory.Write("a.txt", "one two\r\nTwo\n\nlast two");
  directory.Write("b.txt", "twofold\n");
  Expect({"search", "two", "a.txt", "b.txt"}, 0,
         "a.txt(1): one two\na.txt(4): last two\nb.txt(1): twofold\n");
  Expect({"search", "-iw", "TWO", "a.txt", "b.txt"}, 0,
         "a.txt(1): one two\na.txt(2): Two\na.txt(4): last two\n");
  Expect({"search", "three", "a.txt"}, 1, "");
  Expect({"search", "^$", "a.txt"}, 1, "");
  Expect({"search", "--", "two", "-"}, 0, "-(1): one two\n-(4): last two\n", "", "a.txt");
  std::string full = directory.Path("a.txt").string();
  Expect({"search", "fold", full, directory.Path("b.txt").string()}, 0, "b.txt(1): twofold\n");
  ProgramResult counts = directory.Run({"search", "-c", "two", "a.txt"});
  EXPECT_TRUE(counts.out.ends_with("a.txt: 2\n")) << counts.out;
  EXPECT_GT(counts.out.size(), std::string("a.txt: 2\n").size()) << "counts come with the full name";
}

TEST_F(Tarrowc, GoesOnAfterAFileThatFails) {
  directory.Write("a", "text\n");
  directory.Write("empty", "");
  std::filesystem::create_directory(directory.Path("dir"));
  Expect({"search", "x", "missing", "dir", "empty", "a"}, 2, "a(1): text\n",
         "tarrowc search: missing: The file could not be located\ntarrowc search: dir: Is a directory\n");
  Expect({"strings", "missing", "dir", "empty", "a"}, 1, "a(0x0000): text\n",
         "tarrowc strings: missing: The file could not be located\ntarrowc strings: dir: Is a directory\n");
  Expect({"compare", "missing", "a"}, 2, "", "tarrowc compare: missing: The file could not be located\n");
  Expect({"compare", "a", "dir"}, 2, "", "tarrowc compare: dir: Is a directory\n");
  Expect({"lines", "dir"}, 1, "", "tarrowc lines: dir: Is a directory\n");
  Expect({"hex", "missing"}, 1, "", "tarrowc hex: missing: The file could not be located\n");
}

TEST_F(Tarrowc, ComparesAsDiffDoes) {
  directory.Write("a", "1\n2\n3\n");
  directory.Write("b", "new\n1\n2\n3\n");
  Expect({"compare", "a", "a"}, 0, "");
  Expect({"compare", "a", "b"}, 1, "1a1\n> new\n");
  Expect({"compare", "--patch", "a", "b"}, 1, "0a1\n> new\n");
  Expect({"compare", "a", "-"}, 1, "1a1\n> new\n", "", "b");
  Expect(
      {"compare", "-", "-"}, 2, "",
      "tarrowc compare: the standard input can only be compared with a file; see tarrowc compare --help\n");
  directory.Write("long", std::string(70'000, 'x'));
  Expect({"compare", "-p", "a", "long"}, 2, "",
         "tarrowc compare: long: a line is longer than 65535 characters\n");
}

TEST_F(Tarrowc, ListsStrings) {
  using namespace std::string_view_literals;
  directory.Write("a", "\x01\x02some text\0ab\0yes!\xFF"sv);
  Expect({"strings", "a"}, 0, "a(0x0002): some text\na(0x000f): yes!\n");
  Expect({"strings", "-e", "[a-z][a-z]+", "a"}, 0,
         "a(0x0002): some\na(0x0007): text\na(0x000c): ab\na(0x000f): yes\n");
  Expect({"strings", "--pattern=no", "a"}, 0, "");
}

TEST_F(Tarrowc, ListsLines) {
  directory.Write("a", "one\r\n\ttwo\r\n\r\nlast");
  Expect({"lines", "a"}, 0, "one\n        two\n\nlast\n");
  Expect({"lines", "-t2", "-f2", "-n1", "a"}, 0, "  two\n");
  Expect({"lines", "-n0", "a"}, 0, "");
  Expect({"lines", "--statistics", "a"}, 0, "FILE: a, 17 Bytes, 4 Lines\n");
  Expect({"lines", "-f5", "a"}, 1, "", "tarrowc lines: a: has only 4 lines\n");
  directory.Write("wide", std::string(300, 'x') + "\nend\n");
  Expect({"lines", "wide"}, 0, std::string(255, 'x') + "\nend\n");
  directory.Write("empty", "");
  Expect({"lines", "empty"}, 0, "");
  // After a control byte lines start one byte late.
  directory.Write("control", "a\x01\r\nbc\r\nde\r\n");
  Expect({"lines", "control"}, 1, "",
         "tarrowc lines: control: Non-ANSI character (0x1); --yes lists it anyway\n");
  Expect({"lines", "-y", "control"}, 0, "a\x01\nb\nc\nd\ne\n");
}

TEST_F(Tarrowc, ListsHex) {
  directory.Write("a", "0123456789ABCDEF\n!");
  std::string first = "       0: 30313233 34353637 38394142 43444546  0123456789ABCDEF\n";
  std::string second = "      10: 0A21                                 .!\n";
  Expect({"hex", "a"}, 0, first + second);
  Expect({"hex", "-f", "1f", "a"}, 0, second);
  Expect({"hex", "-n1", "a"}, 0, first);
  Expect({"hex", "-s", "a"}, 0, "FILE: a, Size: 18 Bytes\n");
  Expect({"hex", "-f", "20", "a"}, 1, "", "tarrowc hex: a: has only 2 rows\n");
}

TEST_F(Tarrowc, RefusesFilesBeyond32Bits) {
  directory.Write("big", "");
  std::error_code error;
  std::filesystem::resize_file(directory.Path("big"), 0x1'0000'0001, error);
  if (error) GTEST_SKIP() << "no sparse files here: " << error.message();
  Expect({"hex", "big"}, 1, "", "tarrowc hex: big: larger than 4 GB\n");
  Expect({"lines", "big"}, 1, "", "tarrowc lines: big: larger than 4 GB\n");
}

}  // namespace
}  // namespace tarrow
