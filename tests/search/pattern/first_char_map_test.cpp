#include "search/pattern/first_char_map.h"

#include "base/text_format.h"
#include "search/pattern/byte_code.h"
#include "search/pattern/regex_compiler.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

// The same walk in plain words, which goes every way again: what the map is by definition.
void WalkNaively(const std::vector<std::uint8_t>& code, CompiledPattern& map, int& steps) {
  auto mark = [&](int c) { map.firstCharMap[map.Fold()[static_cast<std::size_t>(c)]] = true; };
  auto markAll = [&] {
    for (int c = 0; c < 256; ++c)
      if (c != '\r' && c != '\n') map.firstCharMap[c] = true;
  };
  std::vector<int> pending{0};
  while (!pending.empty()) {
    int at = pending.back();
    pending.pop_back();
    for (bool goesOn = true; goesOn;) {
      if (--steps < 0) return;
      if (at >= static_cast<int>(code.size())) {
        map.canBeEmpty = kAnywhere;
        return;
      }
      Opcode op = OpcodeAt(code, at);
      int target = JumpTarget(code, at);
      goesOn = false;
      if (op == Opcode::kExact) {
        mark(code[at + 2]);
      } else if (op == Opcode::kLineEnd) {
        mark('\r');
        if (map.canBeEmpty == kNever) map.canBeEmpty = kAtLineEnd;
      } else if (op == Opcode::kAnyChar) {
        markAll();
        if (map.canBeEmpty != kNever) return;
      } else if (op == Opcode::kCharSet || op == Opcode::kCharSetNot) {
        for (int c = 0; c < 256; ++c)
          if (IsInBitmap(code, at, c) == (op == Opcode::kCharSet))
            op == Opcode::kCharSet ? mark(c) : void(map.firstCharMap[c] = true);
      } else if (op == Opcode::kBackRef) {
        map.canBeEmpty = kAnywhere;
        mark('\r');
        return markAll();
      } else {
        goesOn = true;
        bool isJump = op == Opcode::kMaybeFinalizeJump || op == Opcode::kDummyFailureJump;
        if (op == Opcode::kOnFailureJump) pending.push_back(target);
        if (isJump) {
          map.canBeEmpty = kAnywhere;
          bool closesLoop = target < at && OpcodeAt(code, target) == Opcode::kOnFailureJump;
          if (closesLoop) target = JumpTarget(code, target);
          if (closesLoop && !pending.empty() && pending.back() == target) pending.pop_back();
        }
        at = isJump ? target : at + OperationSize(code, at);
      }
    }
  }
}

TEST(FirstCharMap, IsThatOfTheWalkWhichGoesEveryWayAgain) {
  RandomPatterns generator(7);
  int compared = 0;
  while (compared < 5'000) {
    CompiledPattern pattern;
    pattern.foldCase = generator.Below(3) == 0;
    std::string source = generator.Pattern();
    if (CompilePattern(source, pattern) != PatternError::kNone) continue;
    ComputeFirstCharMap(pattern);
    CompiledPattern wanted;
    wanted.foldCase = pattern.foldCase;
    int steps = 100'000;
    WalkNaively(pattern.code, wanted, steps);
    if (steps < 0) continue;
    ++compared;
    ASSERT_EQ(MapOf(pattern), MapOf(wanted)) << source;
    ASSERT_EQ(pattern.canBeEmpty, wanted.canBeEmpty) << source;
  }
}

// Each of them has 2 to the power of five hundred ways through.
TEST(FirstCharMap, TakesNoLongerForManyWaysThrough) {
  for (const char* item : {"\\(a?\\)?", "\\(a?b?\\)*", "\\([ab]?\\)?"}) {
    std::string source;
    for (int i = 0; i < 500; ++i) source += item;
    CompiledPattern pattern;
    ASSERT_EQ(CompilePattern(source + "x", pattern), PatternError::kNone) << item;
    ComputeFirstCharMap(pattern);
    EXPECT_TRUE(pattern.firstCharMap['x']);
    EXPECT_TRUE(pattern.firstCharMap['a']);
    EXPECT_FALSE(pattern.firstCharMap['y']);
  }
}

}  // namespace
}  // namespace tarrow
