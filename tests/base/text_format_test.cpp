#include "base/text_format.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(FormatText, FillsEveryKindOfFieldThatTheMessagesUse) {
  struct Case {
    std::string_view pattern;
    std::initializer_list<FormatArg> args;
    std::string_view expected;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"Edit%.2d", {7}, "Edit07"},
           {"Edit%.2d", {123}, "Edit123"},
           {"%s(0x%.4lx): %s\r\n", {"a.c", 0x1f, "text"}, "a.c(0x001f): text\r\n"},
           {"(0x%.4lx)", {0x12345}, "(0x12345)"},
           {"%8lX:", {0xABCDEF}, "  ABCDEF:"},
           {"%d%s%02d", {9, ".", 5}, "9.05"},
           {"%02d", {-5}, "-5"},
           {"%4d|%-4d|", {-5, 5}, "  -5|5   |"},
           {"100%% of %s", {"it"}, "100% of it"},
           {"%.2s%c", {"abc", 'x'}, "abx"},
           {"%u", {-1}, "4294967295"},
           {"%ld Bytes", {std::int64_t{5'000'000'000}}, "5000000000 Bytes"},
           // Nothing is read that was not given, and what does not fit is shown all the same.
           {"%s and %s", {"one"}, "one and %s"},
           {"%d", {"text"}, "text"},
           {"%s", {12}, "12"},
           {"%q %", {1}, "%q %"},
       })
    EXPECT_EQ(FormatText(c.pattern, c.args), c.expected) << c.pattern;
}

}  // namespace
}  // namespace tarrow
