#include "search/pattern/regex_dump.h"

#include "search/pattern/regex_compiler.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(RegexDump, ShowsOneOperationALine) {
  CompiledPattern pattern;
  ASSERT_EQ(CompilePattern("^\\<\\([a-cx-]+\\)\\1?.\\t\\>[^\xE9]$", pattern), PatternError::kNone);
  EXPECT_EQ(DumpPattern(pattern),
            "   0 LineStart\n"
            "   1 WordStart\n"
            "   2 GroupStart 1\n"
            "   4 DummyFailureJump 10\n"
            "   7 OnFailureJump 31\n"
            "  10 CharSet [\\-a-cx]\n"
            "  28 MaybeFinalizeJump 7\n"
            "  31 GroupEnd 1\n"
            "  33 OnFailureJump 38\n"
            "  36 BackRef 1\n"
            "  38 AnyChar\n"
            "  39 Exact \\x09\n"
            "  42 WordEnd\n"
            "  43 CharSetNot [\\xE9]\n"
            "  75 LineEnd\n");
}

TEST(RegexDump, ShowsWhatTheCompilerNeverEmits) {
  CompiledPattern pattern;
  pattern.code = {0, 16, 77, 4};
  EXPECT_EQ(DumpPattern(pattern), "   0 NoOp(0)\n   1 NoOp(16)\n   2 NoOp(77)\n   3 Jump 6\n");
}

}  // namespace
}  // namespace tarrow
