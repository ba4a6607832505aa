// Patterns for texts in UTF-8 and in code pages: characters instead of bytes, and letters beyond ASCII.
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"
#include "search/pattern/regex_dump.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarrow {
namespace {

const Charset kUtf8, kWestern{WesternCodePage()};

struct Compiled {
  CompiledPattern pattern;
  PatternError error;

  Compiled(std::string_view source, FindOptions options, Charset charset)
      : error(CompileFindPattern(source, options, charset, pattern)) {}
};

// All matches in `text`, each in brackets.
std::string Marked(CompiledPattern& pattern, const std::string& text) {
  std::string out;
  TextView view(text);
  BytePos done, at;
  MatchRegisters registers;
  while (at <= view.End() && SearchPattern(pattern, view, at, view.End() - at + 1, &registers) >= 0) {
    BytePos start(registers.start[0]), end(registers.end[0]);
    out += view.Copy({done, start}) + "[" + view.Copy({start, end}) + "]";
    done = end;
    at = end == start ? end + 1 : end;
  }
  return out + view.Copy({done, view.End()});
}

TEST(Utf8Pattern, MatchesWholeCharacters) {
  struct {
    const char* pattern;
    const char* text;
    const char* marked;
  } const kRows[] = {
      {".", "aé€😀\r\n", "[a][é][€][😀]\r\n"},
      {"..", "é€", "[é€]"},
      {"[äöü]", "αäβöж", "α[ä]β[ö]ж"},
      {"[^a]", "aäя", "a[ä][я]"},
      {"[а-я]+", "слово word", "[слово] word"},
      {"[a-é]", "zéêb€", "[z][é]ê[b]€"},
      {"é*x", "ééxéx", "[ééx][éx]"},
      {"aé*b", "aéébab", "[aééb][ab]"},
      {"éa+", "éaéaé", "[éaéa]é"},
      {"a?", "aéa", "[a][]é[a][]"},
      {"\\(.\\)\\1", "éêéé", "éê[éé]"},
      {"[^é]*é", "aöé", "[aöé]"},
      {"é$", "éé", "é[é]"},
      {"\xA9", "é", "é"},
      {"[\xC3]", "é", "é"},
      {"[\x80-\xFF]", "é", "é"},
      {"\xA9", "a\xA9", "a[\xA9]"},
      {".", "\xC3(\xE2\x82", "[\xC3][(][\xE2][\x82]"},
  };
  for (auto& row : kRows) {
    Compiled compiled(row.pattern, {}, kUtf8);
    ASSERT_EQ(compiled.error, PatternError::kNone) << row.pattern;
    EXPECT_EQ(Marked(compiled.pattern, row.text), row.marked) << row.pattern;
  }
}

TEST(Utf8Pattern, KnowsTheCaseOfLettersBeyondAscii) {
  struct {
    const char* pattern;
    const char* text;
    const char* marked;
  } const kRows[] = {
      {"été", "ÉTÉ Été ete", "[ÉTÉ] [Été] ete"},
      {"ΣΟΦΟΣ", "σοφος", "[σοφος]"},
      {"[а-я]+", "СЛОВО", "[СЛОВО]"},
      {"[à-ü]", "ÀÜĀ", "[À][Ü]Ā"},
      {"[^é]", "éÉe", "éÉ[e]"},
      {"\\(é\\)x\\1", "éxÉ", "[éxÉ]"},
      {"k", "K\xE2\x84\xAA", "[K]\xE2\x84\xAA"},  // the sign for kelvin is no k
      {"ÿ+", "ÿŸÿ", "[ÿŸÿ]"},
  };
  for (auto& row : kRows) {
    Compiled compiled(row.pattern, {.matchCase = false}, kUtf8);
    ASSERT_EQ(compiled.error, PatternError::kNone) << row.pattern;
    EXPECT_EQ(Marked(compiled.pattern, row.text), row.marked) << row.pattern;
  }
}

TEST(Utf8Pattern, FindsWholeWordsBeyondAscii) {
  FindOptions words{.wholeWord = true};
  std::string text = "café cafés écafé caf";
  Compiled utf8("café", words, kUtf8), part("caf", words, kUtf8), ansi("café", words, kWestern),
      ansiPart("caf", words, kWestern);
  EXPECT_EQ(Marked(utf8.pattern, text), "[café] cafés écafé caf");
  EXPECT_EQ(Marked(part.pattern, text), "café cafés écafé [caf]");
  EXPECT_EQ(Marked(ansi.pattern,
                   "caf\xE9 caf\xE9s \xE9"
                   "caf\xE9 caf"),
            "[caf\xE9] caf\xE9s \xE9"
            "caf\xE9 caf");
  EXPECT_EQ(Marked(ansiPart.pattern, "caf\xE9 caf"), "caf\xE9 [caf]");
}

TEST(Utf8Pattern, FoldsTheLettersOfACodePage) {
  FindOptions fold{.matchCase = false};
  Compiled word("été", fold, kWestern), oe("cœur", fold, kWestern), set("[é]", fold, kWestern);
  EXPECT_EQ(Marked(word.pattern, "\xC9T\xC9 ete"), "[\xC9T\xC9] ete");
  EXPECT_EQ(Marked(oe.pattern, "C\x8CUR c\x9Cur"), "[C\x8CUR] [c\x9Cur]");
  EXPECT_EQ(Marked(set.pattern,
                   "\xE9\xC9"
                   "e"),
            "[\xE9][\xC9]e");
}

TEST(Utf8Pattern, HasOperationsOfItsOwnOnlyWhereNeeded) {
  for (const char* source : {"return", "[a-z]*(", "été", "^[ \\t]*#", "\\(ab\\)+\\1$", "[]x]"}) {
    CompiledPattern bytes;
    ASSERT_EQ(CompileFindPattern(source, {}, bytes), PatternError::kNone);
    EXPECT_EQ(DumpPattern(Compiled(source, {}, kUtf8).pattern), DumpPattern(bytes)) << source;
  }
  EXPECT_EQ(DumpPattern(Compiled(".[^a][bé-ë]é\\<\\>", {.matchCase = false}, kUtf8).pattern),
            "   0 Utf8AnyChar\n"
            "   1 Utf8CharSetNot [A]\n"
            "  14 Utf8CharSet [B] U+00E9-U+00EB\n"
            "  33 Utf8FoldedExact \\xC3\\x89\n"
            "  37 Utf8WordStart\n"
            "  38 Utf8WordEnd\n");
}

TEST(Utf8Pattern, IsNeededWhereBytesWouldNotDo) {
  struct {
    const char* pattern;
    bool matchCase;
    bool needed;
  } const kRows[] = {
      {"return", true, false}, {"return", false, false}, {"été", true, false},     {"été", false, true},
      {"[a-z]", true, false},  {"[^a]", true, true},     {".", true, true},        {"a*", true, true},
      {"[é]", true, true},     {"é*x", true, true},      {"\\<if\\>", true, true}, {"a$", true, false},
      {"\xA9", true, true},
  };
  for (auto& row : kRows) {
    CompiledPattern bytes;
    ASSERT_EQ(CompileFindPattern(row.pattern, {.matchCase = row.matchCase}, bytes), PatternError::kNone);
    EXPECT_EQ(NeedsUtf8(row.pattern, bytes), row.needed) << row.pattern;
  }
}

TEST(Utf8Pattern, SaysTooComplexOfASetThatIsTooLong) {
  std::string members;
  for (char32_t c = 0x4E00; c < 0x4E00 + 2 * 3000; c += 2) members += kUtf8.Encode(c);
  EXPECT_EQ(Compiled("[" + members + "]", {}, kUtf8).error, PatternError::kTooComplex);
  EXPECT_EQ(Compiled("[é", {}, kUtf8).error, PatternError::kInvalid);
}

// In a text that is all ASCII a pattern for UTF-8 comes to what the pattern of bytes comes to, limits too.
TEST(Utf8Pattern, IsThePatternOfBytesInAscii) {
  RandomPatterns random(41);
  for (int i = 0; i < 6'000; ++i) {
    std::string source = random.Pattern(), text = random.Text();
    std::erase(text, '\xE9');
    FindOptions options{.matchCase = random.Below(3) > 0, .wholeWord = random.Below(4) == 0};
    CompiledPattern bytes;
    Compiled utf8(source, options, kUtf8);
    ASSERT_EQ(CompileFindPattern(source, options, bytes), utf8.error) << source;
    if (utf8.error != PatternError::kNone) continue;
    int size = static_cast<int>(text.size()), start = random.Below(size + 1);
    int range = random.Below(2) ? size - start : -start;
    TextView view(std::string_view(text).substr(0, text.size() / 2),
                  std::string_view(text).substr(text.size() / 2));
    MatchRegisters expected, actual;
    int wanted = SearchPattern(bytes, view, BytePos(start), range, &expected);
    ASSERT_EQ(SearchPattern(utf8.pattern, view, BytePos(start), range, &actual), wanted)
        << Quoted(source) << " in " << Quoted(text) << " from " << start << " range " << range;
    ASSERT_EQ(actual, expected) << Quoted(source) << " in " << Quoted(text);
  }
}

// A text in UTF-8 and the same text in a code page of one byte a character.
struct TwoTexts {
  std::string utf8, western;
  std::vector<int> at;  // where the characters, and the end, lie in utf8

  explicit TwoTexts(const std::string& source) : utf8(source) {
    for (BytePos p; p < TextView(utf8).End();) {
      Character c = kUtf8.At(TextView(utf8), p);
      at.push_back(p.value);
      western += kWestern.Encode(c.code);
      p += c.length;
    }
    at.push_back(static_cast<int>(utf8.size()));
  }
  MatchRegisters InUtf8(const MatchRegisters& registers) const {
    MatchRegisters out;
    for (std::size_t r = 0; r < MatchRegisters::kCount; ++r) {
      if (registers.start[r] >= 0) out.start[r] = at[static_cast<std::size_t>(registers.start[r])];
      if (registers.end[r] >= 0) out.end[r] = at[static_cast<std::size_t>(registers.end[r])];
    }
    return out;
  }
};

std::string RandomPieces(RandomPatterns& random, std::initializer_list<const char*> pieces, int most) {
  std::string out;
  for (int n = random.Below(most + 1); n > 0; --n)
    out += *(pieces.begin() + random.Below(static_cast<int>(pieces.size())));
  return out;
}

// What a pattern finds in UTF-8 is what it finds where each character is one byte.
TEST(Utf8Pattern, AgreesWithTheSameTextInACodePage) {
  RandomPatterns random(1821);
  int compared = 0, found = 0;
  while (compared < 8'000) {
    std::string source =
        RandomPieces(random, {"a",   "é",     "É",    "€",        "ü",       "aé",    "é*", "é+",   ".", ".*",
                              "[é]", "[éü]*", "[^é]", "[^a]*",    "[a-z]",   "[é-ü]", "*",  "+",    "?", "^",
                              "$",   "\\<",   "\\>",  "\\(é*\\)", "\\(.\\)", "\\1",   "œ",  "[œ€]", " "},
                     7);
    TwoTexts text(
        RandomPieces(random, {"a", "é", "É", "€", "ü", "Ü", "œ", "Œ", " ", "b", "\r\n", "·", "éa"}, 14));
    FindOptions options{.matchCase = random.Below(2) > 0, .wholeWord = random.Below(5) == 0};
    Compiled utf8(source, options, kUtf8), western(source, options, kWestern);
    ASSERT_EQ(utf8.error, western.error) << source;
    if (utf8.error != PatternError::kNone) continue;
    ++compared;
    auto size = static_cast<int>(text.western.size());
    int start = random.Below(size + 1);
    bool forward = random.Below(2);
    auto startInUtf8 = static_cast<int>(text.at[static_cast<std::size_t>(start)]);
    int range = forward ? size - start : -start;
    int rangeInUtf8 = forward ? static_cast<int>(text.utf8.size()) - startInUtf8 : -startInUtf8;
    auto gap = static_cast<std::size_t>(random.Below(static_cast<int>(text.utf8.size()) + 1));
    TextView view(std::string_view(text.utf8).substr(0, gap), std::string_view(text.utf8).substr(gap));
    MatchRegisters expected, actual;
    int wanted = SearchPattern(western.pattern, TextView(text.western), BytePos(start), range, &expected);
    int result = SearchPattern(utf8.pattern, view, BytePos(startInUtf8), rangeInUtf8, &actual);
    ASSERT_EQ(result, wanted < 0 ? wanted : text.at[static_cast<std::size_t>(wanted)])
        << source << " in " << Quoted(text.utf8) << " from " << startInUtf8 << " case " << options.matchCase
        << "\n"
        << DumpPattern(utf8.pattern) << DumpPattern(western.pattern);
    if (wanted < 0) continue;
    ++found;
    ASSERT_EQ(actual, text.InUtf8(expected)) << source << " in " << Quoted(text.utf8);
  }
  EXPECT_GT(found, 1000);
}

}  // namespace
}  // namespace tarrow
