#include "tools/file_manager/name_pattern.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct Mapping {
  const char* name;
  const char* from;
  const char* to;
  const char* mapped;  // null: not matched
};

constexpr Mapping kMappings[] = {
    {"main.c", "*.c", "*.bak", "main.bak"},
    {"MAIN.C", "*.c", "*.bak", "MAIN.bak"},
    {"main.cpp", "*.c", "*.bak", nullptr},
    {"lib.tar.gz", "*.*", "*.bak", "lib.tar.bak"},
    {"file1.c", "file?.c", "data?.h", "data1.h"},
    {"file12.c", "file?.c", "data?.h", nullptr},
    {"main.c", "*", "old_*", "old_main.c"},
    {"main.c", "*.*", "*_old.*", "main_old.c"},
    {"a-b.c", "*-*.c", "*_*.h", "a_b.h"},
    {"makefile", "*.*", "*.*", "makefile"},
    {"makefile", "*.*", "*.bak", "makefile.bak"},
    {"makefile", "*.*", "*_old.*", "makefile_old"},
    {"makefile", "make.*", "x.*", nullptr},
    {"a.c", "?.c", "??.c", "a.c"},
    {"\xC3\xA4.c", "?.c", "x?.c", "x\xC3\xA4.c"},
    {"abc", "abc", "x", "x"},
    {"abc", "abc", "...", ""},
    {"", "*", "x*", "x"},
    {"aXbXc", "*X*", "*-*", "aXb-c"},
};

TEST(NamePattern, MapsNames) {
  for (const Mapping& m : kMappings) {
    auto mapped = MapName(m.name, m.from, m.to);
    ASSERT_EQ(mapped.has_value(), m.mapped != nullptr) << m.name << " from " << m.from;
    if (mapped) {
      EXPECT_EQ(*mapped, m.mapped) << m.name << " from " << m.from << " to " << m.to;
    }
  }
}

TEST(NamePattern, ThePatternForANewOneAlone) {
  EXPECT_EQ(MapName("main.c", PatternFor("*"), "*"), "main.c");
  EXPECT_EQ(MapName("lib.tar.gz", PatternFor("*.bak"), "*.bak"), "lib.tar.bak");
  EXPECT_EQ(MapName("makefile", PatternFor("*.bak"), "*.bak"), "makefile.bak");
  EXPECT_EQ(MapName("main.c", PatternFor("new.c"), "new.c"), "new.c");
}

TEST(NamePattern, WildcardsAreFilledFromOthers) {
  EXPECT_TRUE(HasWildcardsFor("*.c", "*.bak"));
  EXPECT_TRUE(HasWildcardsFor("*.*", "x"));
  EXPECT_FALSE(HasWildcardsFor("a.c", "*.bak"));
  EXPECT_FALSE(HasWildcardsFor("*.c", "*?.bak"));
}

TEST(NamePattern, KnowsWhatAFileCanBeCalled) {
  for (const char* name : {"a", "a b.c", ".x", "\xC3\xA4", "a.b.c"}) EXPECT_TRUE(IsFileName(name)) << name;
  for (const char* name :
       {"", ".", "..", "a.", "a ", "a\\b", "a/b", "a:b", "a*", "?", "\"a\"", "a<", "a|", "a\tb"})
    EXPECT_FALSE(IsFileName(name)) << name;
}

}  // namespace
}  // namespace tarrow
