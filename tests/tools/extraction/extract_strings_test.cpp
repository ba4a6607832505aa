#include "tools/extraction/extract_strings.h"

#include "base/exceptions.h"
#include "search/pattern/regex_compiler.h"
#include "search/pattern/regex_matcher.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace tarrow {
namespace {

CompiledPattern Compiled(std::string_view text) {
  CompiledPattern pattern;
  EXPECT_EQ(CompilePattern(text, pattern), PatternError::kNone);
  return pattern;
}

class TryingPattern final : public AnchoredPattern {
 public:
  explicit TryingPattern(std::string_view text) : pattern_(Compiled(text)) {}

  Match FindFirst(std::string_view text, std::size_t from, std::size_t limit, Progress*) override {
    for (; from < limit; ++from) {
      TextView rest = text.substr(from);
      int length = MatchAt(pattern_, rest, BytePos(0), rest.End());
      if (length > 0) return {from, static_cast<std::size_t>(length)};
    }
    return {limit, 0};
  }

 private:
  CompiledPattern pattern_;
};

std::string Extract(const std::string& bytes, std::string_view pattern, std::string_view name = "f") {
  StringSource source(bytes);
  TryingPattern trying(pattern);
  StringSink out;
  ExtractStrings(source, name, trying, out, "\r\n", nullptr);
  return out.text;
}

// The extraction as one would write it down, a byte at a time.
std::string ExtractNaively(const std::string& bytes, std::string_view patternText) {
  CompiledPattern pattern = Compiled(patternText);
  std::string buffer = bytes.substr(0, 33'792), out;
  std::size_t read = buffer.size(), p = 0, remaining = buffer.size(), offset = 0;
  bool ended = buffer.size() < 33'792;
  while (remaining > 0) {
    TextView text(std::string_view(buffer).substr(p, remaining));
    int length = MatchAt(pattern, text, BytePos(0), text.End());
    if (length > 0) {
      while (length > 0) {
        auto n = static_cast<std::size_t>(std::min(length, 128));
        char head[64];
        std::snprintf(head, sizeof head, "f(0x%.4lx): ", static_cast<unsigned long>(offset));
        out.append(head).append(buffer, p, n).append("\r\n");
        p += n;
        offset += n;
        remaining -= n;
        length -= static_cast<int>(n);
      }
    } else {
      ++p;
      ++offset;
      --remaining;
    }
    if (!ended && remaining <= 1024) {
      buffer.erase(0, buffer.size() - 1024);
      p -= 32'768;
      std::string more = bytes.substr(read, 32'768);
      read += more.size();
      ended = more.size() < 32'768;
      buffer += more;
      remaining += more.size();
    }
  }
  return out;
}

TEST(ExtractStrings, WritesRunsWithTheirOffsets) {
  EXPECT_EQ(Extract(std::string("abc\0", 4), kDefaultStringPattern), "");
  EXPECT_EQ(Extract(std::string("\x01"
                                "abcd\0",
                                6),
                    kDefaultStringPattern, "dir\\lib.a"),
            "dir\\lib.a(0x0001): abcd\r\n");
  EXPECT_EQ(Extract("", kDefaultStringPattern), "");
  std::string run = std::string(16, '\0') + std::string(300, 'x');
  EXPECT_EQ(Extract(run, kDefaultStringPattern), "f(0x0010): " + std::string(128, 'x') +
                                                     "\r\nf(0x0090): " + std::string(128, 'x') +
                                                     "\r\nf(0x0110): " + std::string(44, 'x') + "\r\n");
  EXPECT_EQ(Extract(std::string(0x12345, '\0') + "here", kDefaultStringPattern), "f(0x12345): here\r\n");
  // An empty match is none, and a NUL within a match is written with it.
  EXPECT_EQ(Extract("b", "a*"), "");
  EXPECT_EQ(Extract(std::string("a\0b", 3), "a[^x]b"), std::string("f(0x0000): a\0b\r\n", 16));
  // Each place is the start of the text.
  EXPECT_EQ(Extract("aa", "^a"), "f(0x0000): a\r\nf(0x0001): a\r\n");
}

TEST(ExtractStrings, CutsAMatchWhereTheWindowEnds) {
  EXPECT_EQ(Extract(std::string(33'792, 'x') + "yyy", kDefaultStringPattern).find("yyy"), std::string::npos);
  EXPECT_NE(Extract(std::string(33'792, 'x') + "yyyy", kDefaultStringPattern).find("(0x8400): yyyy"),
            std::string::npos);
}

TEST(ExtractStrings, AgreesWithTheNaiveExtraction) {
  std::mt19937 random(1);
  const std::string_view patterns[] = {kDefaultStringPattern, "a[^z]*", "\\<b+", "^\\(ab\\)*", "x?"};
  for (int round = 0; round < 60; ++round) {
    // Sizes around the window's steps, and runs across them.
    std::size_t size = random() % 3 * 32'768 + 1024 + random() % 5 - 2;
    std::string bytes(size, '\0');
    std::size_t longest = round % 2 ? 12 : 3000;
    for (std::size_t at = 0; at < size;) {
      char c = "\0ab \xE9z"[random() % 6];
      for (std::size_t n = random() % longest; n > 0 && at < size; --n)
        bytes[at++] = random() % 9 ? c : "ab"[random() % 2];
      ++at;
    }
    std::string_view pattern = patterns[random() % 5];
    ASSERT_EQ(Extract(bytes, pattern), ExtractNaively(bytes, pattern)) << round;
  }
}

TEST(ExtractStrings, KeepsWhatItFoundBeforeAReadFailed) {
  struct Failing final : ByteSource {
    std::size_t Read(std::span<char> into) override {
      if (reads++) throw CFileException(FileCause::kHardware, "disk");
      std::fill(into.begin(), into.end(), '\0');
      std::copy_n("found", 5, into.begin());
      return into.size();
    }
    void Seek(std::uint64_t) override {}
    std::uint64_t Size() override { return 0; }
    int reads = 0;
  } source;
  TryingPattern pattern(kDefaultStringPattern);
  StringSink out;
  EXPECT_THROW(ExtractStrings(source, "f", pattern, out, "\n", nullptr), CFileException);
  EXPECT_EQ(out.text, "f(0x0000): found\n");
}

TEST(ExtractStrings, EndsWhenCancelled) {
  struct Endless final : ByteSource {
    std::size_t Read(std::span<char> into) override {
      std::fill(into.begin(), into.end(), '\0');
      return into.size();
    }
    void Seek(std::uint64_t) override {}
    std::uint64_t Size() override { return 0; }
  } source;
  struct Cancelling final : Progress {
    void Poll() override { throw CYieldException(); }
  } cancelling;
  TryingPattern pattern(kDefaultStringPattern);
  StringSink out;
  EXPECT_THROW(ExtractStrings(source, "f", pattern, out, "\n", &cancelling), CYieldException);
}

}  // namespace
}  // namespace tarrow
