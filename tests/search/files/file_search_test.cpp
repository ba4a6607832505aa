#include "search/files/file_search.h"

#include "base/exceptions.h"
#include "base/utf16.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tarrow {
namespace {

using Listing = FileSearch::Listing;

std::string FoundIn(ByteSource& source, const std::string& pattern, Listing listing,
                    FindOptions options = {}) {
  LinePattern compiled;
  EXPECT_EQ(compiled.Compile(pattern, options), PatternError::kNone) << pattern;
  StringSink sink;
  FileSearch search(compiled, listing, sink, nullptr);
  (void)search.Run(source, "f.c", "c:\\f.c");
  return sink.text;
}

std::string Found(const std::string& pattern, const std::string& file, Listing listing = Listing::kLines,
                  FindOptions options = {}) {
  StringSource source(file);
  return FoundIn(source, pattern, listing, options);
}

TEST(FileSearch, ListsMatchingLines) {
  EXPECT_EQ(Found("b", "abc\r\nxyz\r\nb"), "f.c(1): abc\r\nf.c(3): b\r\n");
  EXPECT_EQ(Found("b", "abc\nxyz\nb\n"), "f.c(1): abc\r\nf.c(3): b\r\n");
  EXPECT_EQ(Found("q", "abc\n"), "");
  EXPECT_EQ(Found("q", ""), "");
}

TEST(FileSearch, CountsMatchingLines) {
  EXPECT_EQ(Found("b", "abb\nb\nx\nb", Listing::kCounts), "c:\\f.c: 3\r\n");
  EXPECT_EQ(Found("q", "abb\n", Listing::kCounts), "");
}

TEST(FileSearch, NeverMatchesAnEmptyLine) {
  EXPECT_EQ(Found("^$", "\r\n\n\r\nx\n"), "");
  EXPECT_EQ(Found("x*", "\n\na\n"), "f.c(3): a\r\n");
  EXPECT_EQ(Found("$", "\nab\n"), "f.c(2): ab\r\n");
}

TEST(FileSearch, TakesOnlyTheCarriageReturnOfALineEnd) {
  EXPECT_EQ(Found("a", "a\r\r\n"), "f.c(1): a\r\r\n");
  EXPECT_EQ(Found("a", "a\rb\n"), "f.c(1): a\rb\r\n");
  EXPECT_EQ(Found("a", "a\r"), "f.c(1): a\r\r\n");
  EXPECT_EQ(Found("a", std::string("a\0b\x1A\n", 5)), std::string("f.c(1): a\0b\x1A\r\n", 14));
}

TEST(FileSearch, BreaksLongLines) {
  std::string line300 = std::string(254, 'x') + "a" + std::string(44, 'y') + "b";
  EXPECT_EQ(Found("b", line300 + "\nb\n"), "f.c(2): " + std::string(44, 'y') + "b\r\nf.c(3): b\r\n");
  EXPECT_EQ(Found("ay", line300), "");
  EXPECT_EQ(Found("^y", line300), "f.c(2): " + std::string(44, 'y') + "b\r\n");

  // 254 characters and the line feed make one line, also with a carriage return; 255 leave an empty one.
  EXPECT_EQ(Found("b", std::string(254, 'x') + "\nb"), "f.c(2): b\r\n");
  EXPECT_EQ(Found("b", std::string(254, 'x') + "\r\nb"), "f.c(2): b\r\n");
  EXPECT_EQ(Found("b", std::string(255, 'x') + "\nb"), "f.c(3): b\r\n");
  EXPECT_EQ(Found("b", std::string(255, 'x') + "\r\nb"), "f.c(3): b\r\n");
  EXPECT_EQ(Found("x", std::string(255, 'x')), "f.c(1): " + std::string(255, 'x') + "\r\n");
}

// What the header promises, line by line. A line is judged as a whole; its pieces go by that.
std::string NaiveSearch(std::string_view source, FindOptions options, const std::string& file) {
  CompiledPattern bytes, utf8, page;
  EXPECT_EQ(CompileFindPattern(source, options, bytes), PatternError::kNone);
  EXPECT_EQ(CompileFindPattern(source, options, Charset(), utf8), PatternError::kNone);
  EXPECT_EQ(CompileFindPattern(source, options, Charset(SystemCodePage()), page), PatternError::kNone);
  std::string text, out;
  for (std::size_t i = 0; i < file.size(); ++i)
    if (file[i] != '\r' || i + 1 == file.size() || file[i + 1] != '\n') text += file[i];
  int number = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::string line = text.substr(at, text.find('\n', at) - at);
    bool isAscii = std::ranges::all_of(line, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    CompiledPattern& pattern = !IsUtf8(source) || isAscii ? bytes : IsUtf8(line) ? utf8 : page;
    bool hasFeed = at + line.size() < text.size();
    at += line.size() + hasFeed;
    for (std::size_t from = 0; from < line.size() || (from == line.size() && hasFeed); from += 255) {
      std::string piece = line.substr(from, 255);
      ++number;
      auto size = static_cast<std::int32_t>(piece.size());
      if (size > 0 && SearchPattern(pattern, TextView(piece), BytePos(0), size) >= 0)
        out += "f(" + std::to_string(number) + "): " + piece + "\r\n";
    }
  }
  return out;
}

TEST(FileSearch, AgreesWithSearchingLineByLine) {
  static const char* const kBeyond[] = {"é", "\xE9", "Éa", "ж", "€\n", "\xE2", "\xA9\n", "ü"};
  RandomPatterns random(3);
  for (int i = 0; i < 1500; ++i) {
    bool isAscii = random.Below(2);
    std::string source = random.Pattern(), file;
    if (!isAscii && random.Below(2)) source += kBeyond[random.Below(8)];
    FindOptions options{.matchCase = random.Below(3) > 0, .wholeWord = random.Below(4) == 0};
    LinePattern pattern;
    if (pattern.Compile(source, options) != PatternError::kNone) continue;
    for (int n = random.Below(6); n >= 0; --n) {
      file += random.Text();
      if (isAscii) std::erase(file, '\xE9');
      if (!isAscii && random.Below(2)) file += kBeyond[random.Below(8)];
      if (random.Below(5) == 0)
        file += std::string(static_cast<std::size_t>(random.Below(600)), "ab \r"[random.Below(4)]);
      if (random.Below(300) == 0)
        file += std::string(static_cast<std::size_t>(262144 - 300 + random.Below(600)), 'b');
    }
    StringSink sink;
    StringSource bytes(file);
    FileSearch search(pattern, Listing::kLines, sink, nullptr);
    (void)search.Run(bytes, "f", "f");
    ASSERT_EQ(sink.text, NaiveSearch(source, options, file)) << Quoted(source) << " in " << Quoted(file);
  }
}

// A file that was mapped and has then been cut: what it lost reads as zeros there.
class MappedSource final : public ByteSource {
 public:
  MappedSource(std::string_view bytes, std::size_t sizeNow)
      : mapped_(bytes.substr(0, sizeNow)), size_(sizeNow) {
    mapped_.resize(bytes.size());
  }

  std::string_view Map() override { return mapped_; }
  bool PassMapped(std::size_t count) override {
    if (position_ + count > size_) return false;
    position_ += count;
    return true;
  }
  std::size_t Read(std::span<char> into) override {
    std::size_t n = StringSource(std::string_view(mapped_).substr(position_, size_ - position_)).Read(into);
    position_ += n;
    return n;
  }
  void Seek(std::uint64_t) override {}
  std::uint64_t Size() override { return size_; }

 private:
  std::string mapped_;
  std::size_t position_ = 0, size_;
};

TEST(FileSearch, FindsInAMappedFileWhatReadingFindsAndNothingThatIsGone) {
  std::string file;
  for (int i = 0; file.size() < 700'000; ++i)
    file += i % 900 == 0 ? std::string(700, 'x') + " rare\n" : "line " + std::to_string(i) + "\r\n";
  file += "the last line, rare";
  for (const char* pattern : {"rare", "^l", "[0-9]77", "absent", "^[^z]*$"})
    for (Listing listing : {Listing::kLines, Listing::kCounts})
      for (std::size_t size : {file.size(), std::size_t{600'000}, std::size_t{300'000}, std::size_t{0}}) {
        MappedSource source(file, size);
        EXPECT_EQ(FoundIn(source, pattern, listing), Found(pattern, file.substr(0, size), listing))
            << pattern << " in " << size;
      }
}

TEST(FileSearch, KnowsTheCharactersOfEachLine) {
  FindOptions word{.wholeWord = true}, fold{.matchCase = false};
  std::string file = "caf\xE9s\ncafés\ncaf\xE9\ncafé\ncafe\n";
  EXPECT_EQ(Found("café", file, Listing::kLines, word), "f.c(3): caf\xE9\r\nf.c(4): café\r\n");
  EXPECT_EQ(Found("CAFÉ$", file, Listing::kLines, fold), "f.c(3): caf\xE9\r\nf.c(4): café\r\n");
  EXPECT_EQ(Found("^.$", "é\n\xE9\nab\n"), "f.c(1): é\r\nf.c(2): \xE9\r\n");
  EXPECT_EQ(Found("[äöü]", "α\nä\nж\n"), "f.c(2): ä\r\n");
  EXPECT_EQ(Found("\xE9", "é\n\xE9\n"), "f.c(2): \xE9\r\n") << "a pattern of bytes";
}

// A character cut in two by the length of lines does not make the line another character set.
TEST(FileSearch, JudgesALineAsAWhole) {
  std::string line = std::string(254, 'x') + "é" + std::string(20, 'y') + "é";
  EXPECT_EQ(Found("y[é]", line + "\n"), "f.c(2): " + line.substr(255) + "\r\n");
  std::string endless(300'000, 'y');
  for (std::size_t at = 254; at + 1 < endless.size(); at += 2 * 255 - 1) endless.replace(at, 2, "é");
  EXPECT_EQ(Found("[é]", "é" + endless).substr(0, 11), "f.c(1): éy");
}

class FailingSource final : public ByteSource {
 public:
  std::size_t Read(std::span<char> into) override {
    if (reads_++ > 0) throw CFileException(FileCause::kHardware, "f");
    std::fill(into.begin(), into.end(), 'a');
    into[1] = '\n';
    return into.size();
  }
  void Seek(std::uint64_t) override {}
  std::uint64_t Size() override { return 0; }

 private:
  int reads_ = 0;
};

TEST(FileSearch, WritesWhatItFoundBeforeAFault) {
  LinePattern pattern;
  ASSERT_EQ(pattern.Compile("^a$", {}), PatternError::kNone);
  StringSink sink;
  FailingSource source;
  FileSearch search(pattern, Listing::kLines, sink, nullptr);
  EXPECT_THROW((void)search.Run(source, "f", "f"), CFileException);
  EXPECT_EQ(sink.text, "f(1): a\r\n");
}

}  // namespace
}  // namespace tarrow
