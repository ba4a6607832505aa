#include "base/byte_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace tarrow {
namespace {

std::array<bool, 256> Members(std::string_view listed, bool complement = false) {
  std::array<bool, 256> members;
  members.fill(complement);
  for (char c : listed) members[static_cast<unsigned char>(c)] = !complement;
  return members;
}

// Sets that are compared as ranges, as the complement of ranges, and byte by byte.
const std::array<bool, 256> kSets[] = {
    Members(""),
    Members("", true),
    Members("a"),
    Members("abc_XYZ"),
    Members("\r\n", true),
    Members("\x00\xFF", true),
    Members("acegikmoqsuwy"),
    Members("\x7F\x80\x81"),
};

TEST(ByteClass, AgreesWithItsDefinitionAtEveryLengthAndAlignment) {
  std::mt19937 random(1);
  std::string store(200, 'x');
  for (const auto& members : kSets) {
    ByteClass wanted(members);
    auto isMember = [&](char c) { return members[static_cast<unsigned char>(c)]; };
    for (unsigned rarity : {2u, 60u}) {
      for (char& c : store) c = random() % rarity ? 'x' : static_cast<char>(random());
      for (std::size_t start = 0; start < 18; ++start) {
        for (std::size_t n = 0; n < 90; ++n) {
          std::string_view text = std::string_view(store).substr(start, n);
          auto index = [&](auto it) { return static_cast<std::size_t>(it - text.begin()); };
          ASSERT_EQ(wanted.FindFirst(text), index(std::find_if(text.begin(), text.end(), isMember)));
          ASSERT_EQ(wanted.FindFirstNot(text), index(std::find_if_not(text.begin(), text.end(), isMember)));
          for (int length : {1, 2, 3, 5, 8}) {
            auto run = std::search_n(text.begin(), text.end(), length, true,
                                     [&](char c, bool) { return isMember(c); });
            ASSERT_EQ(wanted.FindRun(text, static_cast<std::size_t>(length)), index(run));
          }
          std::size_t edge = 1;
          while (edge < n && (!isMember(text[edge]) || text[edge - 1] == 'x')) ++edge;
          ASSERT_EQ(wanted.FindFirstAfterNot(ByteClass(Members("x")), text), std::min(edge, n));
          auto trailing = std::find_if_not(text.rbegin(), text.rend(), isMember) - text.rbegin();
          ASSERT_EQ(wanted.CountTrailing(text), static_cast<std::size_t>(trailing));
        }
      }
    }
  }
}

TEST(ByteClass, Combines) {
  ByteClass letters(Members("abc")), vowels(Members("aei"));
  EXPECT_EQ((letters | vowels).Members(), Members("abcei"));
  EXPECT_EQ((letters & vowels).Members(), Members("a"));
  EXPECT_TRUE(letters.Has('b'));
  EXPECT_FALSE(letters.Has('\xE9'));
}

}  // namespace
}  // namespace tarrow
