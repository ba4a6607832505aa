#include "edit/documents/buffer_lines.h"

#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

std::vector<std::string> LinesOf(const TextBuffer& buffer, TextRange part) {
  Charset charset;
  BufferLines lines(buffer, charset, part);
  std::vector<std::string> texts;
  while (auto line = lines.Next()) texts.push_back(line->Copy());
  return texts;
}

TEST(BufferLines, GivesThePartsOfLinesThatLieInTheRange) {
  TextBuffer buffer;
  buffer.Replace(Range(0, 0), "ab\r\n\r\ncde\r\n");
  using Texts = std::vector<std::string>;
  EXPECT_EQ(LinesOf(buffer, Range(0, 11)), (Texts{"ab", "", "cde"}));
  EXPECT_EQ(LinesOf(buffer, Range(1, 8)), (Texts{"b", "", "cd"}));
  EXPECT_EQ(LinesOf(buffer, Range(1, 6)), (Texts{"b", ""}));
  EXPECT_EQ(LinesOf(buffer, Range(3, 5)), (Texts{"", ""}));
  EXPECT_EQ(LinesOf(buffer, Range(7, 7)), Texts{""});
  EXPECT_EQ(LinesOf(buffer, Range(11, 11)), Texts{});
  EXPECT_EQ(LinesOf(TextBuffer(), Range(0, 0)), Texts{});
}

// Joined again, the lines are the range, whatever the text and the range, but for the line ends.
TEST(BufferLines, LoseNothing) {
  std::mt19937 random(3);
  for (int round = 0; round < 500; ++round) {
    TextBuffer buffer;
    std::string text = RandomText(random, 60);
    buffer.Replace(Range(0, 0), text);
    TextRange part = RandomRange(random, buffer.Size(), 60);
    std::string joined, wanted;
    for (const std::string& line : LinesOf(buffer, part)) joined += line;
    std::string copy = buffer.View().Copy();
    for (std::int32_t at = part.start.value; at < part.end.value; ++at) {
      auto i = static_cast<std::size_t>(at);
      bool isEnd = copy.compare(i, 2, "\r\n") == 0 || (i > 0 && copy.compare(i - 1, 2, "\r\n") == 0);
      if (!isEnd) wanted += copy[i];
    }
    ASSERT_EQ(joined, wanted);
  }
}

}  // namespace
}  // namespace tarrow
