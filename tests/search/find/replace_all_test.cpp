#include "search/find/replace_all.h"

#include "base/utf16.h"
#include "search/find/find_state.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {

namespace {

enum class For { kBytes, kUtf8 };

CompiledPattern Compiled(std::string_view pattern, For what = For::kBytes, FindOptions options = {}) {
  CompiledPattern compiled;
  EXPECT_EQ(what == For::kBytes ? CompileFindPattern(pattern, options, compiled)
                                : CompileFindPattern(pattern, options, Charset(), compiled),
            PatternError::kNone)
      << pattern;
  return compiled;
}

TextRange Whole(std::string_view text) {
  return {BytePos(0), BytePos(static_cast<std::int64_t>(text.size()))};
}

std::string Apply(std::string text, const EditList& edits) {
  for (std::size_t i = edits.Size(); i-- > 0;)
    text.replace(static_cast<std::size_t>(edits[i].range.start.value),
                 static_cast<std::size_t>(edits[i].range.Length()), edits[i].text);
  return text;
}

std::string InOneSweep(std::string_view pattern, std::string_view text, TextRange region,
                       std::string_view replacement, For what = For::kBytes, FindOptions options = {}) {
  CompiledPattern compiled = Compiled(pattern, what, options);
  ReplaceAllResult result = ReplaceAll(compiled, text, region, Replacement(replacement, Charset()));
  EXPECT_FALSE(result.outOfMemory);
  return Apply(std::string(text), result.edits);
}

// One match after another replaced in the text itself, as a user would with the dialog.
std::string OneByOne(std::string_view pattern, std::string text, TextRange region,
                     std::string_view replacement, For what = For::kBytes, FindOptions options = {}) {
  CompiledPattern compiled = Compiled(pattern, what, options);
  Replacement parsed(replacement, Charset());
  std::int32_t start = region.start.value, left = region.Length();
  bool repeatsEmpty = false;
  do {
    MatchRegisters registers;
    BytePos stop(start + left);
    if (SearchPattern(compiled, TextView(text), BytePos(start), left, &registers, nullptr, stop) < 0) break;
    std::int32_t from = registers.start[0], to = registers.end[0];
    if (repeatsEmpty && from == start && to == start) {  // it would go on for ever
      std::int32_t length = std::max(Charset().At(TextView(text), BytePos(start)).length, 1);
      start += length;
      left -= length;
      repeatsEmpty = false;
      continue;
    }
    std::string inserted;
    parsed.Build(TextView(text), registers, inserted);
    text.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), inserted);
    left -= to - start;
    start = from + static_cast<std::int32_t>(inserted.size());
    repeatsEmpty = from == to;
    auto step = [&](std::int32_t length) {
      start += length;
      left -= length;
      repeatsEmpty = false;
    };
    auto byte = [&] { return TextView(text).At(BytePos(start)); };
    if (compiled.hasLineStart && inserted.empty()) {
      step(std::max(Charset().At(TextView(text), BytePos(start)).length, 1));
    } else {
      if (byte() == '\r') step(1);
      if (byte() == '\n') step(1);
    }
  } while (left > 0);
  return text;
}

template <std::size_t N>
std::string RandomText(std::mt19937& random, const std::string_view (&pieces)[N], unsigned most) {
  std::string text;
  for (auto n = random() % (most + 1); n-- > 0;) text += pieces[random() % N];
  return text;
}

}  // namespace

TEST(ReplaceAll, DoesWhatAUserExpects) {
  struct Row {
    const char* pattern;
    const char* text;
    const char* replacement;
    const char* after;
  };
  const Row kRows[] = {
      {"a", "banana", "oo", "boonoonoo"},
      {"$", "one\r\ntwo\r\nthree", ";", "one;\r\ntwo;\r\nthree;"},
      {"^ ", "  a\r\n  b\r\nc", "", " a\r\n b\r\nc"},
      {"^", "a\r\n\r\nb", "> ", "> a\r\n> \r\n> b"},
      {"a", "aaaa", "aa", "aaaaaaaa"},
      {"\\(.\\)=\\(.\\)", "a=b c=d", "\\2=\\1", "b=a d=c"},
      {"x*", "aé", "-", "-a-é"},
      {"\\<", "one two", "*", "*one *two"},
      {"\\>", "one two", "*", "one* two"},
      {"ab", "aabb", "", "ab"},
      {"^a", "aab", "\\n", "\r\n\r\nb"},
      {"", "ab", "-", "-a-b"},
  };
  for (const Row& row : kRows)
    EXPECT_EQ(InOneSweep(row.pattern, row.text, Whole(row.text), row.replacement), row.after) << row.pattern;
}

TEST(ReplaceAll, StaysInItsRegion) {
  EXPECT_EQ(InOneSweep("a", "aaaa", {BytePos(1), BytePos(3)}, "b"), "abba");
  EXPECT_EQ(InOneSweep("a", "aaaa", {BytePos(2), BytePos(2)}, "b"), "aaaa");
  // The whole match lies in it, though what stands behind it is seen.
  EXPECT_EQ(InOneSweep("a+", "xaaaax", {BytePos(0), BytePos(3)}, "b"), "xbaax");
  EXPECT_EQ(InOneSweep("ab", "abab", {BytePos(0), BytePos(3)}, "x"), "xab");
  EXPECT_EQ(InOneSweep("ab$", "abab", {BytePos(0), BytePos(2)}, "x"), "abab");
  EXPECT_EQ(InOneSweep("[^x]*", "ab\r\ncd", {BytePos(0), BytePos(1)}, "-"), "-b\r\ncd");
}

TEST(ReplaceAll, ComesToTheSameAsReplacingOneByOne) {
  constexpr std::string_view kTextPieces[] = {"a", "b", " ", "\r\n", "\r", "\n", "_", "é", ".", "aa"};
  constexpr std::string_view kPatternPieces[] = {"a",   "b", ".",    "*",        "^", "$", "\\<",
                                                 "\\>", " ", "[^a]", "\\(a*\\)", "+", "?"};
  constexpr std::string_view kReplacementPieces[] = {"", "&", "x", " ", "\\n", "\\1", "a", "\\U&", "-"};
  std::mt19937 random(1789);
  for (int round = 0; round < 30000; ++round) {
    std::string pattern = RandomText(random, kPatternPieces, 4), text = RandomText(random, kTextPieces, 12);
    std::string replacement = RandomText(random, kReplacementPieces, 2);
    auto size = text.size() + 1;
    BytePos a(static_cast<std::int64_t>(random() % size)), b(static_cast<std::int64_t>(random() % size));
    TextRange region = random() % 2 ? Whole(text) : TextRange{std::min(a, b), std::max(a, b)};
    For what = random() % 2 ? For::kBytes : For::kUtf8;
    if (what == For::kUtf8) {
      region.start = Charset().Snap(TextView(text), region.start);
      region.end = Charset().Snap(TextView(text), region.end);
    }
    ASSERT_EQ(InOneSweep(pattern, text, region, replacement, what),
              OneByOne(pattern, text, region, replacement, what))
        << (what == For::kUtf8 ? "UTF-8 " : "") << "pattern '" << pattern << "' text '" << text
        << "' replacement '" << replacement << "' from " << region.start.value << " to " << region.end.value;
  }
}

TEST(ReplaceAll, KeepsTheCharactersOfUtf8) {
  std::string text = "αäβ öж €";
  EXPECT_EQ(InOneSweep("[äöü]", text, Whole(text), "x", For::kUtf8), "αxβ xж €");
  EXPECT_EQ(InOneSweep(".", text, Whole(text), "-", For::kUtf8), "--------");
  EXPECT_EQ(InOneSweep("x*", "é€", Whole("é€"), "-", For::kUtf8), "-é-€");
  EXPECT_EQ(InOneSweep("\\(.\\)", "é€", Whole("é€"), "<\\1>", For::kUtf8), "<é><€>");
  EXPECT_EQ(InOneSweep("\\<.", "été ç", Whole("été ç"), "", For::kUtf8), " ") << "each start of a word anew";
}

// Whatever the pattern: a valid text stays valid, as far as the replacement is.
TEST(ReplaceAll, NeverMakesUtf8Invalid) {
  constexpr std::string_view kTextPieces[] = {"a",  "é", "É",      "Ω",    "ж", "€",
                                              "中", "😀", "\u0301", "\r\n", " ", "À"};
  constexpr std::string_view kPatternPieces[] = {
      "a",     "é",           ".",     "*",    "?",       "+",        "^",   "$",
      "[äöü]", "[^a]",        "[^é]*", "\\<",  "\\>",     "\\(",      "\\)", "\\1",
      "\xA9",  "[\x80-\xBF]", "[é-€]", "\xC3", "[^\xC3]", "\xE2\x82", ".*",  " "};
  constexpr std::string_view kReplacementPieces[] = {"", "&", "x", "\\1", "é", "\\U&", "\\u\\1", "€"};
  std::mt19937 random(1837);
  for (int tried = 0; tried < 5000;) {
    std::string pattern = RandomText(random, kPatternPieces, 5), text = RandomText(random, kTextPieces, 12);
    std::string replacement = RandomText(random, kReplacementPieces, 2);
    FindState state;
    state.pattern = pattern;
    state.SetOptions(random() % 2, random() % 4 == 0);
    if (CompileIfNeeded(state, Charset(), TextView(text)) != 0) continue;
    ++tried;
    ReplaceAllResult result =
        ReplaceAll(state.compiled, text, Whole(text), Replacement(replacement, Charset()));
    std::string after = Apply(text, result.edits);
    ASSERT_TRUE(IsUtf8(after)) << "'" << pattern << "' in '" << text << "' by '" << replacement
                               << "': " << after;
  }
}

TEST(ReplaceAll, StopsWhenTheUserHasHadEnough) {
  struct Impatient final : Progress {
    void Poll() override { throw CYieldException(); }
  } impatient;
  CompiledPattern compiled = Compiled("a");
  std::string text(4'000'000, 'a');
  EXPECT_THROW((void)ReplaceAll(compiled, text, Whole(text), Replacement("b", Charset()), &impatient),
               CYieldException);
}

}  // namespace tarrow
