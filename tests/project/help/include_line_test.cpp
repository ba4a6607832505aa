#include "project/help/include_line.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(IncludeLine, NamesAFile) {
  struct {
    const char* line;
    const char* expected;  // "!" before a name that is tried as written
  } const kRows[] = {
      {"  #include <stdio.h>", "stdio.h"},
      {"#include\t\"my.h\" // mine", "!my.h"},
      {"#include<sys/x.h>", "sys/x.h"},
      {"#include <sys\\x.h>", "!sys\\x.h"},
      {"#include <c:x.h>", "!c:x.h"},
      {"!include rules.mak  ", "rules.mak"},
      {"!include <rules.mak>", "rules.mak"},
      {"#include_next <a.h>", "a.h"},
      {"#include \"open", "!open"},
      {"#include <open", "open"},
      {"#includefoo", "none"},
      {"#include_nextx <a.h>", "none"},
      {"#include_ <a.h>", "none"},
      {"#include", "none"},
      {"#include <>", "none"},
      {"# include <a.h>", "none"},
      {"#Include <a.h>", "none"},
      {"x #include <a.h>", "none"},
      {"include <a.h>", "none"},
      {"", "none"},
  };
  for (auto& row : kRows) {
    auto include = ReadIncludeLine(row.line);
    EXPECT_EQ(row.expected, include ? (include->tryAsWritten ? "!" : "") + include->name : "none")
        << row.line;
  }
}

TEST(IncludeLine, IsSoughtInTheDirectoriesInOrder) {
  using Paths = std::vector<std::string>;
  EXPECT_EQ(IncludeCandidates({"a.h", false}, "c:\\x; d:\\y\\ ;;", " ;rel;c:"),
            (Paths{"c:\\x\\a.h", "d:\\y\\a.h", "rel\\a.h", "c:a.h"}));
  EXPECT_EQ(IncludeCandidates({"a.h", true}, "", "z"), (Paths{"a.h", "z\\a.h"}));
  EXPECT_EQ(IncludeCandidates({"a.h", false}, "", ""), Paths());
}

}  // namespace
}  // namespace tarrow
