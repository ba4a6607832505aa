#include "tests/edit/text/failing_allocations.h"
#include "tests/edit/text/text_model.h"

#include <functional>

namespace tarrow {
namespace {

// Does `action` to the same buffer with memory ending at the first, second ... allocation, until it succeeds:
// every failure must be a CMemoryException and leave text, lines and undo as they were.
void FailEverywhere(const std::function<TextBuffer()>& make, const std::function<void(TextBuffer&)>& action) {
  TextBuffer reference = make();
  std::string text = reference.View().Copy(), undone;
  bool canUndo = reference.UndoLast().has_value();
  undone = reference.View().Copy();
  for (long countdown = 0;; ++countdown) {
    TextBuffer buffer = make();
    bool thrown = false, refused = false;
    {
      FailingAllocations failing(countdown);
      try {
        action(buffer);
      } catch (const CMemoryException&) {
        thrown = true;
      }
      refused = failing.Refused();
    }
    if (!refused) {
      EXPECT_GT(countdown, 0) << "the action never allocates";
      return;
    }
    if (!thrown) continue;  // it made do with less
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, text)) << "allocation " << countdown;
    ASSERT_EQ(buffer.UndoLast().has_value(), canUndo) << "allocation " << countdown;
    ASSERT_NO_FATAL_FAILURE(ExpectIs(buffer, undone)) << "allocation " << countdown;
  }
}

TextBuffer Edited() {
  TextBuffer buffer = BufferOf("one\r\ntwo\r\nthree and a line that is longer than a short string\r\n");
  buffer.Replace(Range(5, 8), "2\r\n2", EditKind::kTyping);
  return buffer;
}

// More lines than the slack of the line index holds, so that text and index must both grow.
std::string ManyLines() {
  std::string text;
  for (int i = 0; i < 60'000; ++i) text += "\r\nxxxx";
  return text;
}

TEST(TextBufferFaults, FirstInsertion) {
  FailEverywhere([] { return TextBuffer(); }, [](TextBuffer& b) { b.Replace({}, "a\r\nb"); });
}

TEST(TextBufferFaults, LargeInsertion) {
  FailEverywhere(Edited, [text = ManyLines()](TextBuffer& b) { b.Replace(Range(7, 9), text); });
}

TEST(TextBufferFaults, DeletionOfMuch) {
  FailEverywhere(Edited, [](TextBuffer& b) { b.Replace(Range(2, b.Size() - 2), ""); });
}

TEST(TextBufferFaults, DeletionThatJoinsTheLastOne) {
  auto make = [] {
    TextBuffer buffer = BufferOf(std::string(100, 'x') + "\r\n");
    buffer.Replace(Range(50, 80), "", EditKind::kDeleting);
    return buffer;
  };
  FailEverywhere(make, [](TextBuffer& b) { b.Replace(Range(10, 50), "", EditKind::kDeleting); });
}

TEST(TextBufferFaults, ListOfReplacements) {
  EditList edits;
  edits.Add(Range(0, 3), ManyLines());
  edits.Add(Range(5, 6), "");
  edits.Add(Range(9, 9), ManyLines());
  FailEverywhere(Edited, [&](TextBuffer& b) { b.Apply(edits); });
}

TEST(TextBufferFaults, UndoOfAPlaceAndOfAList) {
  auto place = [] {
    TextBuffer buffer = BufferOf(ManyLines());
    buffer.Replace(Range(0, 110'000), "a long enough replacement to need memory of its own");
    return buffer;
  };
  FailEverywhere(place, [](TextBuffer& b) { b.UndoLast(); });
  auto list = [] {
    TextBuffer buffer = BufferOf(ManyLines());
    EditList edits;
    edits.Add(Range(0, 50'000), "");
    edits.Add(Range(60'000, 110'000), "a long enough replacement to need memory of its own");
    buffer.Apply(edits);
    return buffer;
  };
  FailEverywhere(list, [](TextBuffer& b) { b.UndoLast(); });
}

TEST(TextBufferFaults, LevelsOfUndo) {
  auto make = [] {
    TextBuffer buffer = BufferOf(ManyLines());
    buffer.SetUndoLevels(3);
    buffer.Replace(Range(0, 1000), "", EditKind::kDeleting);
    buffer.Replace(Range(0, 110'000), "a long enough replacement to need memory of its own");
    return buffer;
  };
  FailEverywhere(make, [](TextBuffer& b) { b.Replace(Range(9, 9), "x"); });
  FailEverywhere(make, [](TextBuffer& b) { b.UndoLast(); });
  auto undone = [&] {
    TextBuffer buffer = make();
    buffer.UndoLast();
    return buffer;
  };
  FailEverywhere(undone, [](TextBuffer& b) { b.RedoNext(); });
}

TEST(TextBufferFaults, RefusesMoreThanATextMayHold) {
  TextBuffer buffer = BufferOf("abc");
  std::string_view huge("x", static_cast<std::size_t>(kMaxTextSize));
  EXPECT_THROW(buffer.Replace(Range(0, 1), huge), CMemoryException);
  EXPECT_THROW((void)TextBuffer().PrepareLoad(std::int64_t{1} << 33), CMemoryException);
  ExpectIs(buffer, "abc");
}

}  // namespace
}  // namespace tarrow
