#include "edit/text/text_buffer.h"

#include "tests/edit/text/text_model.h"

#include <algorithm>

namespace tarrow {
namespace {

TEST(TextBuffer, IsAStringUnderRandomChanges) {
  std::mt19937 random(7);
  for (int round = 0; round < 40; ++round) {
    TextBuffer buffer;
    std::string model;
    for (int step = 0; step < 200; ++step) {
      TextRange range = RandomRange(random, buffer.Size(), 12);
      std::string text = RandomText(random, 10);
      if (random() % 10 == 0) {
        EditList edits = RandomEdits(random, buffer.Size());
        model = After(model, edits);
        buffer.Apply(edits);
      } else {
        model.replace(static_cast<std::size_t>(range.start.value), static_cast<std::size_t>(range.Length()),
                      text);
        buffer.Replace(range, text, static_cast<EditKind>(random() % 4));
      }
      if (random() % 20 == 0) {
        ASSERT_EQ(buffer.Contiguous(), model);
      }
      ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, model));
    }
  }
}

TEST(TextBuffer, FindsTheLineOfEveryPosition) {
  std::mt19937 random(3);
  std::string model = RandomText(random, 500);
  TextBuffer buffer = BufferOf(model);
  buffer.Replace(Range(100, 100), "x");  // puts the gap into the middle
  model.insert(model.begin() + 100, 'x');
  auto starts = LineStartsOf(model);
  for (std::int32_t at = 0; at <= buffer.Size(); ++at) {
    auto line = std::upper_bound(starts.begin(), starts.end(), at) - starts.begin() - 1;
    ASSERT_EQ(buffer.LineOf(BytePos(at)), LineNo(line)) << at;
  }
}

TEST(TextBuffer, GivesLinesWithoutTheirTerminators) {
  TextBuffer buffer = BufferOf("one\r\n\r\ntwo\rthree\nfour\r\n");
  ASSERT_EQ(buffer.LineCount(), LineNo(4));
  std::string lines;
  for (LineNo line(0); line < buffer.LineCount(); ++line)
    lines += buffer.View().Copy(buffer.LineRange(line)) + "|";
  EXPECT_EQ(lines, "one||two\rthree\nfour||");
}

TEST(TextBuffer, EmptyTextHasOneLineAndANulBehindIt) {
  TextBuffer buffer;
  EXPECT_EQ(buffer.LineCount(), LineNo(1));
  EXPECT_EQ(buffer.LineRange(LineNo(0)), Range(0, 0));
  EXPECT_EQ(*buffer.Contiguous().data(), '\0');
  EXPECT_FALSE(buffer.UndoLast());
}

TEST(TextBuffer, ContiguousTextEndsWithANulWhereverTheGapWas) {
  for (std::int32_t gap : {0, 2, 5, 8, 10}) {
    TextBuffer buffer = BufferOf("0123456789");
    buffer.Replace(Range(gap, gap), "x");
    std::string expected = "0123456789";
    expected.insert(expected.begin() + gap, 'x');
    for (bool isAligned : {false, true}) {
      std::string_view text = isAligned ? buffer.ContiguousAligned() : buffer.Contiguous();
      EXPECT_EQ(text, expected);
      EXPECT_EQ(text.data()[text.size()], '\0');
    }
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer.ContiguousAligned().data()) % 65536, 0u);
  }
}

// A key costs the same at the start, in the middle and at the end of texts of any size: after the jump there,
// a thousand keys move a few bytes each.
TEST(TextBuffer, AKeyMovesNoMoreBytesInALargeText) {
  for (std::int32_t lines : {1'000, 1'000'000}) {
    std::string text;
    for (std::int32_t i = 0; i < lines; ++i) text += "some line\r\n";
    TextBuffer buffer = BufferOf(text);
    for (double place : {0.0, 0.5, 1.0}) {
      BytePos at(static_cast<std::int64_t>(place * buffer.Size()));
      buffer.Replace({at, at}, "x", EditKind::kTyping);
      std::uint64_t before = buffer.MovedBytes();
      for (int key = 1; key <= 1000; ++key)
        buffer.Replace({at + key, at + key}, key % 40 ? "x" : "\r", EditKind::kTyping);
      EXPECT_LT(buffer.MovedBytes() - before, 100u) << lines << " lines, at " << place;
    }
  }
}

TEST(TextBuffer, LoadsThroughItsOwnStorage) {
  TextBuffer buffer;
  std::string unix = "a\nbb\n\nc";
  std::span<char> room = buffer.PrepareLoad(static_cast<std::int64_t>(unix.size()));
  std::copy(unix.begin(), unix.end(), room.begin());
  room = buffer.ExtendLoad(static_cast<std::int64_t>(unix.size()), 10);
  EXPECT_EQ(std::string(room.data(), unix.size()), unix);
  std::string dos = "a\r\nbb\r\n\r\nc";
  std::copy(dos.begin(), dos.end(), room.begin());
  std::span<BytePos> starts = buffer.PrepareLineStarts(3);
  starts[0] = BytePos(3), starts[1] = BytePos(7), starts[2] = BytePos(9);
  buffer.FinishLoad(10, 3);
  ExpectIs(buffer, dos);
  buffer.Replace(Range(4, 9), "");
  ExpectIs(buffer, "a\r\nbc");
}

TEST(TextBuffer, FindsTheLinesOfALoadedTextItself) {
  std::mt19937 random(5);
  for (int round = 0; round < 50; ++round) {
    std::string text = RandomText(random, 200);
    TextBuffer buffer;
    std::span<char> room = buffer.PrepareLoad(static_cast<std::int64_t>(text.size()));
    std::copy(text.begin(), text.end(), room.begin());
    buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, text));
  }
}

TEST(TextBuffer, TheFirstKeyAfterALoadMovesNothing) {
  TextBuffer buffer;
  std::span<char> room = buffer.PrepareLoad(5'000'000);
  std::fill(room.begin(), room.end(), 'x');
  buffer.FinishLoad(5'000'000);
  std::uint64_t before = buffer.MovedBytes();
  buffer.Replace({buffer.End(), buffer.End()}, "y");
  EXPECT_EQ(buffer.MovedBytes(), before);
}

}  // namespace
}  // namespace tarrow
