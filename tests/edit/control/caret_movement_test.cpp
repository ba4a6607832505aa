#include "edit/control/caret_movement.h"

#include "tests/edit/text/text_model.h"

namespace tarrow {
namespace {

// Marks every place at which walking by words stops.
std::string Stops(const std::string& text, bool forwards) {
  Charset charset;
  TextView view(text);
  std::string marks(text.size() + 1, '.');
  BytePos at = forwards ? BytePos(0) : view.End();
  for (std::size_t i = 0; i <= text.size(); ++i) {
    marks[static_cast<std::size_t>(at.value)] = '^';
    at = forwards ? NextWord(view, at, charset) : PreviousWord(view, at, charset);
  }
  return marks;
}

TEST(CaretMovement, StopsAtWordsPunctuationAndLineEnds) {
  EXPECT_EQ(Stops("one  two_3+=x;", true), "^....^....^.^^^");
  EXPECT_EQ(Stops("one  two_3+=x;", false), "^....^....^.^^^");
  EXPECT_EQ(Stops("a\r\n  b\r\n\r\nc", true), "^^.^.^^.^.^^");
  EXPECT_EQ(Stops("a\r\n  b\r\n\r\nc", false), "^^.^.^^.^.^^");
  EXPECT_EQ(Stops("caf\xC3\xA9 x", true), "^.....^^");
  EXPECT_EQ(Stops("", true), "^");
}

TEST(CaretMovement, ABlankDelimitedWordTakesItsBlanksButNoLineEnd) {
  std::string text = "x = a+b  c\r\nd";
  TextView view(text);
  EXPECT_EQ(BlankDelimitedWord(view, BytePos(5)), Range(4, 9));
  EXPECT_EQ(BlankDelimitedWord(view, BytePos(9)), Range(9, 10));
  EXPECT_EQ(BlankDelimitedWord(view, BytePos(12)), Range(12, 13));
}

TEST(CaretMovement, LinesAwayStayWithinTheText) {
  TextBuffer buffer = BufferOf("a\r\nb\r\nc");
  EXPECT_EQ(LineAway(buffer, LineNo(1), 1), LineNo(2));
  EXPECT_EQ(LineAway(buffer, LineNo(1), 100), LineNo(2));
  EXPECT_EQ(LineAway(buffer, LineNo(1), -3'000'000'000), LineNo(0));
}

}  // namespace
}  // namespace tarrow
