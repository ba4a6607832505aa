#include "search/pattern/literal_finder.h"

#include "search/pattern/text_access.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

std::size_t NaiveFind(std::string_view text, std::string_view wanted, bool foldCase) {
  auto fold = [&](char c) {
    return foldCase ? kFoldToUpper[static_cast<unsigned char>(c)] : static_cast<unsigned char>(c);
  };
  for (std::size_t i = 0; i + wanted.size() <= text.size(); ++i) {
    std::size_t n = 0;
    while (n < wanted.size() && fold(text[i + n]) == static_cast<unsigned char>(wanted[n])) ++n;
    if (n == wanted.size()) return i;
  }
  return LiteralFinder::kNotFound;
}

TEST(LiteralFinder, AgreesWithANaiveSearch) {
  std::mt19937 random(7);
  std::string store(300, ' ');
  for (bool foldCase : {false, true}) {
    for (std::string_view wanted : {"A", "(", "AB", "BA", "A(B", "ABAB", "AABAAB(", "A\xE9"}) {
      LiteralFinder finder(wanted, foldCase);
      for (int round = 0; round < 400; ++round) {
        for (char& c : store) c = "AaBb(\xE9\xC9"[random() % 7];
        std::string_view text = std::string_view(store).substr(random() % 20, random() % 200);
        std::size_t expected = NaiveFind(text, wanted, foldCase);
        ASSERT_EQ(finder.Find(text), expected) << wanted << " in " << text;

        std::size_t gap = random() % (text.size() + 1);
        SplitText split(TextView(text.substr(0, gap), text.substr(gap)));
        auto size = static_cast<std::int32_t>(text.size());
        ASSERT_EQ(split.FindLiteral(finder, 0, size),
                  expected == LiteralFinder::kNotFound ? size : static_cast<std::int32_t>(expected));
      }
    }
  }
}

// The scans of the two forms of text agree, wherever the gap lies.
TEST(TextAccess, ScansTwoPiecesAsOne) {
  std::string text = "xx abc  xxabbcc   x";
  FlatText flat{TextView(text)};
  std::array<bool, 256> members{};
  for (char c : std::string_view("abc")) members[static_cast<unsigned char>(c)] = true;
  ByteClass letters(members);
  for (std::size_t gap = 0; gap <= text.size(); ++gap) {
    std::string head = text.substr(0, gap), tail = text.substr(gap);
    SplitText split(TextView(head, tail));
    for (std::int32_t from = 0; from <= flat.Size(); ++from) {
      for (std::int32_t to = from; to <= flat.Size(); ++to) {
        ASSERT_EQ(split.FindFirst(letters, from, to), flat.FindFirst(letters, from, to));
        ASSERT_EQ(split.FindFirstNot(letters, from, to), flat.FindFirstNot(letters, from, to));
        ASSERT_EQ(split.FindWordStart(WordClass(), letters, from, to),
                  flat.FindWordStart(WordClass(), letters, from, to));
        ASSERT_EQ(split.FindByte('b', from, to), flat.FindByte('b', from, to));
        ASSERT_EQ(split.FindLast('b', from, to), flat.FindLast('b', from, to));
        ASSERT_EQ(split.RunStart(letters, from, to), flat.RunStart(letters, from, to));
      }
    }
  }
}

}  // namespace
}  // namespace tarrow
