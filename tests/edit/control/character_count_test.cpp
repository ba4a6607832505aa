#include "edit/control/character_count.h"

#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

std::int32_t CountAnew(const TextView& text, BytePos line, BytePos at) {
  LayoutCheckpoints none;
  return CountCharacters(text, line, at, Charset(), none);
}

TEST(CharacterCount, CountsCharactersNotBytes) {
  std::string bytes = "one\r\n\xC3\xA9\tx\xE2\x82\xAC\xF0\x9F\x98\x80\xFFz";
  const std::pair<int, int> kPlaces[] = {{5, 0}, {7, 1}, {8, 2}, {9, 3}, {12, 4}, {16, 5}, {17, 6}, {18, 7}};
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    TextView text(std::string_view(bytes).substr(0, cut), std::string_view(bytes).substr(cut));
    for (auto [at, count] : kPlaces)
      EXPECT_EQ(CountAnew(text, BytePos(5), BytePos(at)), count) << at << " " << cut;
    EXPECT_EQ(CountAnew(text, BytePos(0), BytePos(3)), 3);
  }
}

// Checkpoints that are told of every change answer as no checkpoints do.
TEST(CharacterCount, CheckpointsChangeNoAnswer) {
  std::mt19937 random(6);
  LayoutCheckpoints checkpoints;
  std::string bytes = "first\r\n" + std::string(40'000, 'a');
  for (int round = 0; round < 300; ++round) {
    auto at = 7 + random() % (bytes.size() - 7);
    bytes.replace(at, random() % 3, random() % 2 ? "\xC3\xA9" : "b");
    checkpoints.Truncate(BytePos(static_cast<std::int64_t>(at)));
    TextView text(bytes);
    BytePos line(random() % 4 ? 7 : 0);
    BytePos place(line.value ? 7 + static_cast<std::int64_t>(random() % (bytes.size() - 7)) : 4);
    place = Charset().Snap(text, place);
    ASSERT_EQ(CountCharacters(text, line, place, Charset(), checkpoints), CountAnew(text, line, place));
  }
}

}  // namespace
}  // namespace tarrow
