#include "edit/recovery/change_stream.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

// What the changes of a stream make of a text.
void Apply(std::string_view changes, std::string& text) {
  while (!changes.empty()) {
    auto change = TakeChange(changes);
    ASSERT_TRUE(change);
    auto at = static_cast<std::size_t>(change->at.value), removed = static_cast<std::size_t>(change->removed);
    ASSERT_LE(at + removed, text.size());
    text.replace(at, removed, change->inserted);
  }
}

TEST(ChangeStream, MakesTheTextInFrontOfTheBorderWhateverChanges) {
  std::mt19937 random(7);
  auto number = [&](std::size_t most) { return random() % (most + 1); };
  for (int play = 0; play < 300; ++play) {
    std::string text(number(40), 'o'), replayed;
    ChangeStream stream;
    for (int step = 0; step < 60; ++step) {
      std::size_t start = number(text.size()), length = number(std::min<std::size_t>(text.size() - start, 5));
      std::string inserted(number(4), static_cast<char>('a' + step % 26));
      text.replace(start, length, inserted);
      stream.Replaced(
          {BytePos(static_cast<std::int64_t>(start)), BytePos(static_cast<std::int64_t>(start + length))},
          inserted);
      std::size_t cut = number(text.size());
      if (!stream.IsWhole() && number(3) == 0)
        stream.Copy({std::string_view(text).substr(0, cut), std::string_view(text).substr(cut)}, 7);
      if (number(2) == 0) Apply(stream.Take(), replayed);
    }
    Apply(stream.Take(), replayed);
    ASSERT_EQ(replayed, text.substr(0, static_cast<std::size_t>(stream.Size()))) << "play " << play;
    ASSERT_TRUE(!stream.IsWhole() || replayed == text);
  }
}

TEST(ChangeStream, ChangesThatContinueOneAnotherAreOne) {
  ChangeStream stream;
  stream.Copy(std::string_view("abc"), 10);
  (void)stream.Take();
  for (int key = 0; key < 1000; ++key) stream.Replaced({BytePos(1 + key), BytePos(1 + key)}, "x");
  for (int key = 0; key < 999; ++key) stream.Replaced({BytePos(1000 - key), BytePos(1001 - key)}, "");
  std::string changes = stream.Take();
  std::string_view left = changes;
  auto change = TakeChange(left);
  ASSERT_TRUE(change);
  EXPECT_EQ(change->at, BytePos(1));
  EXPECT_EQ(change->removed, 0);
  EXPECT_EQ(change->inserted, "x");
  EXPECT_TRUE(left.empty());
}

}  // namespace
}  // namespace tarrow
