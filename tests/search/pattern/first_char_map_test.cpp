#include "search/pattern/first_char_map.h"

#include "base/text_format.h"
#include "search/pattern/regex_compiler.h"

#include <gtest/gtest.h>

#include <string>

namespace tarrow {
namespace {

// The marked bytes as ranges: "A-Z_"; bytes that do not print as <HH>.
std::string MapOf(const CompiledPattern& pattern) {
  auto name = [](int c) { return FormatText(c > ' ' && c <= '~' ? "%c" : "<%02X>", {c}); };
  std::string out;
  for (int c = 0; c < 256; ++c) {
    if (!pattern.firstCharMap[c]) continue;
    int last = c;
    while (last < 255 && pattern.firstCharMap[last + 1]) ++last;
    out += name(c);
    if (last > c) out.append("-").append(name(last));
    c = last;
  }
  return out;
}

constexpr auto kNever = CanBeEmpty::kNever;
constexpr auto kAnywhere = CanBeEmpty::kAnywhere;
constexpr auto kAtLineEnd = CanBeEmpty::kAtLineEnd;
constexpr char kAllButLineEnds[] = "<00>-<09><0B>-<0C><0E>-<FF>";

TEST(FirstCharMap, TellsHowAMatchBegins) {
  struct {
    const char* pattern;
    bool foldCase;
    const char* map;
    CanBeEmpty canBeEmpty;
  } const kRows[] = {
      {"", false, "", kAnywhere},
      {"abc", false, "a", kNever},
      {"abc", true, "A", kNever},
      {"^\\<abc", false, "a", kNever},
      {".", false, kAllButLineEnds, kNever},
      {"$", false, "<0D>", kAtLineEnd},
      {"a?$", false, "<0D>a", kAtLineEnd},
      {"a*", false, "a", kAnywhere},
      {"a*b", false, "a-b", kNever},
      {"a+b", false, "a", kAnywhere},  // the jump into the body of the loop counts as a way to be empty
      {"a?b?c", false, "a-c", kNever},
      {"[a-c]x", true, "A-C", kNever},
      {"[^a-c]x", false, "<00>-`d-<FF>", kNever},
      {"[^\xF0-\xFF]x", false, "<00>-<EF>", kNever},
      {"\\(ab\\)*c", false, "ac", kNever},
      {"\\(a*\\)*c", false, "ac", kAnywhere},
      {"\\(a\\)?\\1", false, "<00>-<09><0B>-<FF>", kAnywhere},
      // Once a line end has been seen, a dot ends the walk: that LF may begin a match stays unseen.
      {"\\($\\)?.?[^x]", false, "<00>-<09><0B>-<FF>", kAtLineEnd},
  };
  for (auto& row : kRows) {
    CompiledPattern pattern;
    pattern.foldCase = row.foldCase;
    ASSERT_EQ(CompilePattern(row.pattern, pattern), PatternError::kNone);
    EXPECT_FALSE(pattern.mapValid);
    ComputeFirstCharMap(pattern);
    EXPECT_TRUE(pattern.mapValid);
    EXPECT_EQ(MapOf(pattern), row.map) << row.pattern;
    EXPECT_EQ(pattern.canBeEmpty, row.canBeEmpty) << row.pattern;
  }
}

}  // namespace
}  // namespace tarrow
