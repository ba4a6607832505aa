#include "search/find/file_finder.h"

#include "base/exceptions.h"
#include "search/find/find_in_bytes.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

constexpr FileFinder::Sizes kSmall{64, 24, 2};

CompiledPattern Compiled(std::string_view text) {
  CompiledPattern pattern;
  EXPECT_EQ(CompileFindPattern(text, {}, pattern), PatternError::kNone) << text;
  return pattern;
}

std::string RandomText(std::mt19937& random, std::size_t size) {
  std::string text;
  while (text.size() < size) {
    for (unsigned n = random() % 12; n > 0; --n) text += "aab_ "[random() % 5];
    text += random() % 3 ? "\n" : "\r\n";
  }
  text.resize(size);
  return text;
}

std::optional<FileRange> InWholeText(CompiledPattern& pattern, std::string_view text, std::size_t start,
                                     std::int32_t range) {
  MatchRegisters registers;
  BytePos from(static_cast<std::int64_t>(start));
  if (SearchPattern(pattern, TextView(text), from, range, &registers) < 0) return std::nullopt;
  return FileRange{static_cast<std::uint64_t>(registers.start[0]),
                   static_cast<std::uint64_t>(registers.end[0])};
}

TEST(FileFinder, FindsWhatASearchOfTheWholeFinds) {
  std::mt19937 random(31);
  for (const char* text : {"ab", "a", "b_", "^a", "a$", "$", "^", "\\<a", "b\\>", "a.b", "[ab]b*", ".*b",
                           "a*_", "\\(ab\\)\\1", "^$", "[^a]b", "\r", "b\r"}) {
    CompiledPattern pattern = Compiled(text);
    for (int round = 0; round < 60; ++round) {
      std::string bytes = RandomText(random, random() % 400);
      StringSource source(bytes);
      FileFinder finder(pattern, source, nullptr, kSmall);
      auto size = static_cast<std::int32_t>(bytes.size());
      for (std::int32_t at = 0; at <= size; at += 1 + static_cast<std::int32_t>(random() % 7)) {
        auto place = static_cast<std::size_t>(at);
        ASSERT_EQ(finder.Forward(place), InWholeText(pattern, bytes, place, size - at)) << text << ' ' << at;
        std::int32_t back = size == 0 ? 0 : std::min(-at, -1);
        ASSERT_EQ(finder.Backward(place), InWholeText(pattern, bytes, place, back)) << text << ' ' << at;
      }
    }
  }
}

TEST(FileFinder, FollowsAMatchBeyondItsWindow) {
  CompiledPattern pattern = Compiled("x[^y]*");
  std::string bytes = std::string(30, 'a') + "x" + std::string(60, 'b') + "y" + std::string(100, 'c');
  StringSource source(bytes);
  FileFinder finder(pattern, source, nullptr, kSmall);
  EXPECT_EQ(finder.Forward(0), (FileRange{30, 91}));
  EXPECT_EQ(finder.Backward(150), (FileRange{30, 91}));
  EXPECT_EQ(finder.ByteAt(30), 'x');
  EXPECT_EQ(finder.ByteAt(150), 'c');
  EXPECT_EQ(finder.ByteAt(bytes.size()), -1);
}

// A file of gigabytes: nothing but zeros, and a word near its end.
class Sparse final : public ByteSource {
 public:
  static constexpr std::uint64_t kSize = 0x3'0000'0000, kWord = kSize - 100;

  std::size_t Read(std::span<char> into) override {
    std::size_t n = static_cast<std::size_t>(
        std::min<std::uint64_t>(into.size(), position_ < kSize ? kSize - position_ : 0));
    std::fill_n(into.begin(), n, '\0');
    for (std::uint64_t i = 0; i < 4; ++i)
      if (kWord + i >= position_ && kWord + i < position_ + n)
        into[static_cast<std::size_t>(kWord + i - position_)] = "word"[i];
    position_ += n;
    read += n;
    return n;
  }
  void Seek(std::uint64_t position) override { position_ = position; }
  std::uint64_t Size() override { return kSize; }

  std::uint64_t read = 0;

 private:
  std::uint64_t position_ = 0;
};

TEST(FileFinder, KnowsPlacesBeyondFourGigabytes) {
  CompiledPattern pattern = Compiled("wo[r]d");
  Sparse source;
  FileFinder finder(pattern, source, nullptr);
  FileRange word{Sparse::kWord, Sparse::kWord + 4};
  EXPECT_EQ(finder.Forward(Sparse::kSize - (10u << 20)), word);
  EXPECT_EQ(finder.Backward(Sparse::kSize), word);
  EXPECT_LT(source.read, 30u << 20) << "no more is read than lies between";
}

struct Cancel final : Progress {
  void Poll() override { throw CYieldException(); }
};

TEST(FileFinder, CanBeCancelled) {
  CompiledPattern pattern = Compiled("wo[r]d");
  Sparse source;
  Cancel cancel;
  FileFinder finder(pattern, source, &cancel);
  EXPECT_THROW(finder.Forward(0), CYieldException);
}

struct Yes final : FindDialogue {
  bool ConfirmRestart(int message) override {
    asked.push_back(message);
    return true;
  }
  void Complain(int message) override { asked.push_back(-message); }

  std::vector<int> asked;
};

// In a file as in a text: the same matches, questions and complaints.
TEST(FindInBytes, IsFindText) {
  std::mt19937 random(32);
  for (const char* pattern : {"ab", "^", "$", "^a", "b$", "zz", "_"}) {
    for (int round = 0; round < 400; ++round) {
      std::string text = RandomText(random, random() % 12);
      auto start = static_cast<std::int32_t>(random() % (text.size() + 1));
      auto end =
          start + static_cast<std::int32_t>(random() % (text.size() + 1 - static_cast<std::size_t>(start)));
      FindState state, naive;
      state.pattern = naive.pattern = pattern;
      state.searchForward = naive.searchForward = random() % 2;
      Yes user, naiveUser;
      StringSource source(text);
      auto found =
          FindInBytes(state, source, {static_cast<std::uint64_t>(start), static_cast<std::uint64_t>(end)},
                      Charset(), user);
      auto wanted = FindText(naive, TextView(text), {BytePos(start), BytePos(end)}, Charset(), naiveUser);
      ASSERT_EQ(user.asked, naiveUser.asked) << pattern << ' ' << testing::PrintToString(text) << start;
      ASSERT_EQ(found.has_value(), wanted.has_value());
      if (!found) continue;
      ASSERT_EQ(found->start, static_cast<std::uint64_t>(wanted->start.value));
      ASSERT_EQ(found->end, static_cast<std::uint64_t>(wanted->end.value));
    }
  }
}

}  // namespace
}  // namespace tarrow
