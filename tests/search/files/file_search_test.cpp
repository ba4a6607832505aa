#include "search/files/file_search.h"

#include "base/exceptions.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <string>

namespace tarrow {
namespace {

using Listing = FileSearch::Listing;

std::string Found(const std::string& pattern, const std::string& file, Listing listing = Listing::kLines) {
  CompiledPattern compiled;
  EXPECT_EQ(CompileFindPattern(pattern, {}, compiled), PatternError::kNone) << pattern;
  StringSink sink;
  StringSource source(file);
  FileSearch search(compiled, listing, sink, nullptr);
  (void)search.Run(source, "f.c", "c:\\f.c");
  return sink.text;
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

// What the header promises, line by line.
std::string NaiveSearch(CompiledPattern& pattern, const std::string& file) {
  std::string text, out;
  for (std::size_t i = 0; i < file.size(); ++i)
    if (file[i] != '\r' || i + 1 == file.size() || file[i + 1] != '\n') text += file[i];
  int number = 0;
  for (std::size_t at = 0; at < text.size();) {
    std::string line = text.substr(at, 255);
    line = line.substr(0, line.find('\n') + (line.find('\n') == std::string::npos ? 0 : 1));
    at += line.size();
    ++number;
    if (line.back() == '\n') line.pop_back();
    auto size = static_cast<std::int32_t>(line.size());
    if (size > 0 && SearchPattern(pattern, TextView(line), BytePos(0), size) >= 0)
      out += "f(" + std::to_string(number) + "): " + line + "\r\n";
  }
  return out;
}

TEST(FileSearch, AgreesWithSearchingLineByLine) {
  RandomPatterns random(3);
  for (int i = 0; i < 1500; ++i) {
    CompiledPattern pattern;
    std::string source = random.Pattern(), file;
    if (CompileFindPattern(source, {.matchCase = random.Below(3) > 0}, pattern) != PatternError::kNone)
      continue;
    for (int n = random.Below(6); n >= 0; --n) {
      file += random.Text();
      if (random.Below(5) == 0)
        file += std::string(static_cast<std::size_t>(random.Below(600)), "ab \r"[random.Below(4)]);
      if (random.Below(300) == 0)
        file += std::string(static_cast<std::size_t>(262144 - 300 + random.Below(600)), 'b');
    }
    StringSink sink;
    StringSource bytes(file);
    FileSearch search(pattern, Listing::kLines, sink, nullptr);
    (void)search.Run(bytes, "f", "f");
    ASSERT_EQ(sink.text, NaiveSearch(pattern, file)) << Quoted(source) << " in " << Quoted(file);
  }
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
  CompiledPattern pattern;
  ASSERT_EQ(CompileFindPattern("^a$", {}, pattern), PatternError::kNone);
  StringSink sink;
  FailingSource source;
  FileSearch search(pattern, Listing::kLines, sink, nullptr);
  EXPECT_THROW((void)search.Run(source, "f", "f"), CFileException);
  EXPECT_EQ(sink.text, "f(1): a\r\n");
}

}  // namespace
}  // namespace tarrow
