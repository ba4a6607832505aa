#include "edit/commands/editing_command.h"
#include "edit/text/letters.h"
#include "edit/text/text_buffer.h"
#include "search/find/replace_all.h"
#include "search/pattern/find_pattern.h"
#include "tests/edit/text/failing_allocations.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>

namespace tarrow {
namespace {

std::string ManyLines() {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "  some words é on a line\r\n";
  return text;
}

TextBuffer BufferOf(std::string_view text) {
  TextBuffer buffer;
  buffer.Replace({}, text);
  return buffer;
}

TextRange Whole(const TextBuffer& buffer) {
  return {BytePos(0), buffer.End()};
}

// Does `change` with memory ending at the first, second ... allocation until it succeeds; `check` looks at
// the buffer after each failure.
void FailEverywhere(const std::function<void(TextBuffer&)>& change,
                    const std::function<void(TextBuffer&)>& check) {
  std::string text = ManyLines();
  (void)SystemCodePage();
  (void)IsWordCharacter(U'a');  // the tables are made once, before memory ends
  for (long countdown = 0;; ++countdown) {
    TextBuffer buffer = BufferOf(text);
    bool refused = false;
    {
      FailingAllocations failing(countdown);
      try {
        change(buffer);
      } catch (const CMemoryException&) {
      } catch (const std::bad_alloc&) {
      }
      refused = failing.Refused();
    }
    if (!refused) {
      EXPECT_GT(countdown, 0) << "the change never allocates";
      return;
    }
    check(buffer);
    if (testing::Test::HasFailure()) return;
  }
}

TEST(EditingFaults, ACommandThatRunsOutOfMemoryLeavesTheTextAsItWas) {
  std::string text = ManyLines();
  for (CommandId id : {kEditUpper, kEditShiftRight, kEditShiftLeft}) {
    auto change = [&](TextBuffer& buffer) {
      EditingContext context{buffer.View(), Whole(buffer), Charset(), {}, nullptr};
      buffer.Apply(RunEditingCommand(*FindEditingCommand(id), context).edits);
    };
    FailEverywhere(change, [&](TextBuffer& buffer) { EXPECT_EQ(buffer.View().Copy(), text) << id; });
  }
}

// What has been replaced when memory ends stays, in order from the top; nothing else has changed.
TEST(EditingFaults, AReplaceAllThatRunsOutOfMemoryKeepsWhatItHasReplaced) {
  std::string text = ManyLines();
  auto change = [](TextBuffer& buffer) {
    CompiledPattern pattern;
    if (CompileFindPattern("words", {}, pattern) != PatternError::kNone) throw CMemoryException();
    Replacement replacement("others", Charset());
    ReplaceAllResult result = ReplaceAll(pattern, buffer.Contiguous(), Whole(buffer), replacement);
    buffer.Apply(result.edits);
  };
  auto check = [&](TextBuffer& buffer) {
    std::string after = buffer.View().Copy();
    std::size_t kept = 0;
    for (std::size_t at; (at = after.find("others")) != after.npos; ++kept) after.replace(at, 6, "words");
    EXPECT_EQ(after, text);
    std::size_t last = buffer.View().Copy().rfind("others"), first = buffer.View().Copy().find("words");
    EXPECT_TRUE(kept == 0 || first == std::string::npos || last < first);
  };
  FailEverywhere(change, check);
}

}  // namespace
}  // namespace tarrow
