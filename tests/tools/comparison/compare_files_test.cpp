#include "tools/comparison/compare_files.h"

#include "base/exceptions.h"
#include "naive_comparison.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

std::string Compare(const std::string& first, const std::string& second, ComparisonOptions options = {}) {
  StringSource a(first), b(second);
  StringSink out;
  bool differ = CompareFiles(a, b, out, options, nullptr);
  EXPECT_EQ(differ, !out.text.empty());
  return out.text;
}

std::string Lines(int from, int to) {
  std::string text;
  for (int i = from; i <= to; ++i) text += "line " + std::to_string(i) + "\n";
  return text;
}

TEST(CompareFiles, WritesBlocks) {
  struct Case {
    const char* name;
    std::string first, second, expected;
  };
  const std::string abc = "alpha\nbeta\ngamma\n";
  for (const Case& c : std::initializer_list<Case>{
           {"both empty", "", "", ""},
           {"identical", Lines(1, 50), Lines(1, 50), ""},
           {"identical, too short for a run", "a\nb\n", "a\nb\n", ""},
           {"CR LF and LF are one line end", "a\r\nb\r\nc\r\nd\r\n", "a\nb\nc\nd\n", ""},
           {"the last line end does not count", abc, "alpha\nbeta\ngamma", ""},
           {"a lone CR is a character", "a\rb\n", "ab\n", "1c1\r\n< a\rb\r\n---\r\n> ab\r\n"},
           {"0x1A and NUL are characters", std::string("a\x1A\0b\n", 5), "a\n",
            std::string("1c1\r\n< a\x1A\0b\r\n---\r\n> a\r\n", 23)},
           {"added at the end", abc, abc + "delta\nepsilon\n", "3a4,5\r\n> delta\r\n> epsilon\r\n"},
           {"deleted at the end", abc + "delta\n", abc, "4d4\r\n< delta\r\n"},
           // An added block names the first pending old line, with which the run begins.
           {"added at the front", abc, "new\n" + abc, "1a1\r\n> new\r\n"},
           {"deleted at the front", "old\n" + abc, abc, "1d1\r\n< old\r\n"},
           {"changed", abc + "x\n" + abc, abc + "y\nz\n" + abc, "4c4,5\r\n< x\r\n---\r\n> y\r\n> z\r\n"},
           {"two equal lines do not settle", "a\nb\nX\na\nb\n", "a\nb\nY\na\nb\n",
            "1,5c1,5\r\n< a\r\n< b\r\n< X\r\n< a\r\n< b\r\n---\r\n> a\r\n> b\r\n> Y\r\n> a\r\n> b\r\n"},
           {"against nothing", "a\n", "", "1d1\r\n< a\r\n"},
           {"nothing against", "", "a\n", "0a1\r\n> a\r\n"},
       })
    EXPECT_EQ(Compare(c.first, c.second), c.expected) << c.name;
}

TEST(CompareFiles, CutsLongLinesAt127Characters) {
  std::string line127(127, 'x'), line200(200, 'y');
  EXPECT_EQ(Compare(line127 + "\n", ""), "1,2d1\r\n< " + line127 + "\r\n< \r\n");
  EXPECT_EQ(Compare(line127 + "\r\n", ""), "1,2d1\r\n< " + line127 + "\r\n< \r\n");
  EXPECT_EQ(Compare(line200 + "\n", ""),
            "1,2d1\r\n< " + line200.substr(0, 127) + "\r\n< " + line200.substr(0, 73) + "\r\n");
  std::string line126(126, 'z');
  EXPECT_EQ(Compare(line126 + "\r\n", ""), "1d1\r\n< " + line126 + "\r\n");
}

TEST(CompareFiles, TakesLinesOfEqualLengthHashAndXorAsEqual) {
  std::string rest = Lines(1, 5), first = rest + "aadb\n" + rest, second = rest + "abad\n" + rest;
  EXPECT_EQ(Compare(first, second), "");
  EXPECT_EQ(Compare(first, second, {ComparisonForm::kPatch, "\n"}), "6c6\n< aadb\n---\n> abad\n");
}

TEST(CompareFiles, NumbersPatchesAsDiffDoes) {
  ComparisonOptions patch{ComparisonForm::kPatch, "\n"};
  const std::string abc = "alpha\nbeta\ngamma\n";
  EXPECT_EQ(Compare(abc, "new\n" + abc, patch), "0a1\n> new\n");
  EXPECT_EQ(Compare(abc + "x\n" + abc, abc + abc, patch), "4d3\n< x\n");
  EXPECT_EQ(Compare(abc + "delta\n", "alpha\nbeta\ngamma\ndelta", patch),
            "4c4\n< delta\n---\n> delta\n\\ No newline at end of file\n");
}

// Random files that share many lines: small alphabets, blocks moved, long lines, every kind of line end.
class RandomFiles {
 public:
  explicit RandomFiles(unsigned seed) : random_(seed) {}

  std::string File(bool plain) {
    std::string text;
    for (unsigned n = Below(60); n > 0; --n) text += Line(plain);
    if (!text.empty() && Below(4) == 0) text.pop_back();
    return text;
  }

  std::string Edited(const std::string& file, bool plain) {
    std::string text = file;
    for (unsigned n = Below(5); n > 0; --n) {
      std::size_t at = Below(text.size() + 1), length = Below(40);
      switch (Below(3)) {
        case 0:
          text.erase(at, length);
          break;
        case 1:
          text.insert(at, Line(plain) + Line(plain));
          break;
        default:
          std::string moved = text.substr(at, length * 4);
          text.erase(at, length * 4);
          text.insert(Below(text.size() + 1), moved);
      }
    }
    return text;
  }

  unsigned Below(std::size_t n) { return static_cast<unsigned>(random_() % n); }

 private:
  std::string Line(bool plain) {
    static const char* const kEnds[] = {"\n", "\n", "\r\n", "\r\r\n"};
    std::string text(Below(10) == 0 && !plain ? 120 + Below(16) : Below(3), 'x');
    for (char& c : text) c = "ab\r\xC3"[Below(plain ? 2 : 4)];
    return text + kEnds[plain ? 0 : Below(4)];
  }

  std::mt19937 random_;
};

TEST(CompareFiles, AgreesWithTheNaiveComparison) {
  for (unsigned seed = 0; seed < 20'000; ++seed) {
    RandomFiles files(seed);
    bool plain = seed % 2;
    std::string first = files.File(plain), second = files.Edited(first, plain);
    std::uint64_t limit = files.Below(3) ? 1 << 20 : files.Below(3000);
    ASSERT_EQ(Compare(first, second, {.memoryLimit = limit}), NaiveComparison(first, second, limit))
        << "seed " << seed;
  }
}

TEST(CompareFiles, MakesPatchesThatGiveTheSecondFile) {
  for (unsigned seed = 0; seed < 20'000; ++seed) {
    RandomFiles files(seed);
    std::string first = files.File(false), second = files.Edited(first, false);
    ComparisonOptions options{ComparisonForm::kPatch, "\n", files.Below(3) ? 1u << 20 : files.Below(3000)};
    ASSERT_EQ(ApplyNormalDiff(first, Compare(first, second, options)), second) << "seed " << seed;
  }
}

// Large enough for several blocks of the window, many table sizes and both ways of settling.
TEST(CompareFiles, AgreesWithTheNaiveComparisonOnLargerFiles) {
  std::mt19937 random(7);
  std::string first, moved = Lines(20'000, 24'000);
  for (int i = 0; i < 15'000; ++i) first += "text " + std::to_string(random() % 5000) + " of a line\n";
  std::string second = first;
  second.insert(second.find('\n', 100'000) + 1, moved);
  first.insert(first.find('\n', 250'000) + 1, moved);
  for (std::uint64_t limit : {40u << 20, 60'000u})
    EXPECT_EQ(Compare(first, second, {.memoryLimit = limit}), NaiveComparison(first, second, limit));
}

TEST(CompareFiles, LeavesWhatWasSettledBeforeAReadFailed) {
  std::string first = Lines(1, 40'000);
  StringSource a(first);
  std::string edited = "new\n" + first;
  struct Failing final : ByteSource {
    explicit Failing(std::string_view bytes) : source(bytes) {}
    std::size_t Read(std::span<char> into) override {
      if (reads++ == 2) throw CFileException(FileCause::kHardware, "disk");
      return source.Read(into);
    }
    void Seek(std::uint64_t) override {}
    std::uint64_t Size() override { return 0; }
    StringSource source;
    int reads = 0;
  } b(edited);
  StringSink out;
  EXPECT_THROW(CompareFiles(a, b, out, {}, nullptr), CFileException);
  EXPECT_EQ(out.text, "1a1\r\n> new\r\n");
}

TEST(CompareFiles, EndsWhenCancelled) {
  struct Cancelling final : Progress {
    void Poll() override { throw CYieldException(); }
  } cancelling;
  struct Endless final : ByteSource {
    explicit Endless(char c) : byte(c) {}
    std::size_t Read(std::span<char> into) override {
      for (char& c : into) c = ++count % 30 ? byte : '\n';
      return into.size();
    }
    void Seek(std::uint64_t) override {}
    std::uint64_t Size() override { return 0; }
    char byte;
    unsigned count = 0;
  } a('a'), b('b');
  StringSink out;
  EXPECT_THROW(CompareFiles(a, b, out, {.memoryLimit = 1 << 16}, &cancelling), CYieldException);
}

TEST(CompareFiles, RefusesAPatchOfALineTooLongForOne) {
  std::string longest(65'535, 'x'), longer = longest + "x";
  ComparisonOptions patch{ComparisonForm::kPatch, "\n"};
  EXPECT_EQ(Compare(longest + "\n", "", patch), "1d0\n< " + longest + "\n");
  EXPECT_THROW(Compare(longer, "", patch), LongLineException);
}

}  // namespace
}  // namespace tarrow
