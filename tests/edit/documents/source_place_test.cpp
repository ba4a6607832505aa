#include "edit/documents/source_place.h"

#include <gtest/gtest.h>

#include <set>

namespace tarrow {
namespace {

std::string Written(const std::optional<SourcePlace>& place) {
  if (!place) return "none";
  return place->name + " " + (place->isAddress ? "@" : "") + std::to_string(place->position) + " " +
         std::to_string(place->column);
}

struct Row {
  const char* line;
  const char* expected;
};

TEST(SourcePlace, IsReadFromTheTextAlone) {
  const Row kRows[] = {
      {"foo.c(12) : error C2065", "foo.c 12 0"},
      {"main.cpp(40,7): warning", "main.cpp 40 7"},
      {"dump (0x1A2B)", "dump @6699 0"},
      {"dump (0X1a2b, 3)", "dump @6699 0"},
      {"dump (0x)", "dump @0 0"},
      {"foo.c(0): nothing", "none"},
      {"foo.c (12", "none"},
      {"foo.c 12)", "none"},
      {"foo.c)12(", "none"},
      {"(12)", "none"},
      {"   (12)", "none"},
      {"foo.c()", "none"},
      {"foo.c(  )", "none"},
      {"", "none"},
      {"C:\\Src\\Foo.C \t( 12 , col 7 )", "c:\\src\\foo.c 12 7"},
      {"a.c(12:7)", "a.c 12 7"},
      {"a.c(12 of 99)x(3)", "a.c 12 99"},
      {"error in b.c(3)", "b.c 3 0"},
      {"foo (bar) a.c(12): error", "a.c 12 0"},
      {"foo ((12) a.c(3)", "( 12 0"},
      {"a.c(99999999999)", "a.c 4294967295 0"},
      {"a.c(0x123456789)", "a.c @4294967295 0"},
      {"a.c(7,99999999999)", "a.c 7 4294967295"},
      {"a.c:12:5: error: undeclared", "a.c 12 5"},
      {"A.c:12: error", "a.c 12 0"},
      {"C:\\src\\a.c:12:5: warning: call of f (int)", "c:\\src\\a.c 12 5"},
      {"In file included from a.c:3:", "a.c 3 0"},
      {"                 from b.c:4,", "b.c 4 0"},
      {"make: *** [Makefile:12: all] Error 2", "makefile 12 0"},
      {"a.c:12:5x", "a.c 12 0"},
      {"a.c:0:5: x", "none"},
      {"12:30:45 started", "none"},
      {"see http://host:80/x", "none"},
      {"a.c: 12", "none"},
      {"a.c :12", "none"},
      {"f (3) a.c:12:5: error", "f 3 0"},
  };
  for (const Row& row : kRows) EXPECT_EQ(row.expected, Written(ParseSourcePlace(row.line))) << row.line;
}

TEST(SourcePlace, PrefersNamesOfFiles) {
  const std::set<std::string> kDisk = {"c:\\my files\\a.c", "b.c", "d(1).c", "files\\e.c", "my files\\e.c"};
  auto exists = [&](const std::string& name) { return kDisk.contains(name); };
  const Row kRows[] = {
      {"C:\\My Files\\a.c(3)", "c:\\my files\\a.c 3 0"},
      {"Compiling C:\\My Files\\a.c (3)", "c:\\my files\\a.c 3 0"},
      {"C:\\My Files\\a.c:3:4: error", "c:\\my files\\a.c 3 4"},
      {"my files\\e.c(3)", "files\\e.c 3 0"},
      {"D(1).c(7)", "d(1).c 7 0"},
      {"gone.c(1) b.c(2)", "b.c 2 0"},
      {"b.c:12:5: error: f (3) is odd", "b.c 12 5"},
      {"\"b.c\":5", "b.c 5 0"},
      {"in \"b.c:5\"", "b.c 5 0"},
      {"gone.c(1): error", "gone.c 1 0"},
      {"gone.c:1:2: error", "gone.c 1 2"},
      {"foo (bar) gone.c(12): error", "gone.c 12 0"},
      {"b.c(x)", "none"},
  };
  for (const Row& row : kRows)
    EXPECT_EQ(row.expected, Written(ParseSourcePlace(row.line, exists))) << row.line;
}

TEST(SourcePlace, AsksTheDiskABoundedNumberOfTimes) {
  std::string line;
  for (int i = 0; i < 20'000; ++i) line += "many words f(1) ";
  int questions = 0;
  auto place = ParseSourcePlace(line, [&](const std::string&) { return ++questions, false; });
  EXPECT_EQ("f 1 0", Written(place));
  EXPECT_LE(questions, 64);
}

// Parentheses that all wait for one closing one, or for none, must not be searched anew for each.
TEST(SourcePlace, ReadsHugeLinesInOneGo) {
  std::string open(2'000'000, '(');
  EXPECT_EQ("none", Written(ParseSourcePlace("x" + open)));
  EXPECT_EQ("none", Written(ParseSourcePlace("x" + open + "q)")));
  std::string colons;
  for (int i = 0; i < 500'000; ++i) colons += ":1x";
  EXPECT_EQ("none", Written(ParseSourcePlace("x" + colons)));
}

}  // namespace
}  // namespace tarrow
