#include "edit/lexers/line_states.h"

#include <algorithm>

namespace tarrow {

void LineStates::Reset(TextBuffer& text, const Lexer* lexer) {
  lexer_ = nullptr;
  unsettled_.Clear();
  text.SetListener(this);
  if (!lexer) return;
  auto lines = static_cast<std::size_t>(text.LineCount().value);
  try {
    std::ranges::fill(states_.PrepareFill(0, lines), kTextStart);
  } catch (const CMemoryException&) {
    return;
  }
  states_.FinishFill(lines);
  lexer_ = lexer;
  unsettled_.Add({0, text.LineCount().value});
}

void LineStates::OnLinesChanged(const LineChange& change) noexcept {
  if (!lexer_) return;
  bool isWithinLine = change.removed == 0 && change.added == 0;
  // Nobody looks at what lies so far behind the start of a line.
  if (isWithinLine && change.offset > static_cast<std::int32_t>(kLexedOfLine)) return;
  if (!isWithinLine) {
    try {
      states_.EnsureGap(static_cast<std::size_t>(change.added));
    } catch (const CMemoryException&) {
      lexer_ = nullptr;
      return unsettled_.Clear();
    }
    LexState guess = StateOf(change.line.value);
    states_.MoveGap(static_cast<std::size_t>(change.line.value) + 1);
    states_.RemoveAfterGap(static_cast<std::size_t>(change.removed));
    for (std::int64_t i = 0; i < change.added; ++i) states_.Append(guess);
    unsettled_.Shift(change.line.value, change.removed, change.added);
  }
  unsettled_.Add({change.line.value, change.line.value + change.added + 1});
}

// Of a very long line no more than is looked at, and a byte to show that there is more.
std::string_view LineStates::Bytes(const TextBuffer& text, TextRange range) {
  if (range.Length() > static_cast<std::int32_t>(kLexedOfLine)) range.end = range.start + kLexedOfLine + 1;
  TextView bytes = text.View().Sub(range);
  if (bytes.tail.empty()) return bytes.head;
  copy_.assign(bytes.head).append(bytes.tail);
  return copy_;
}

LineRange LineStates::Settle(const TextBuffer& text, LineRange wanted, std::int64_t bytes) {
  LineRange changed;
  const std::int64_t count = text.LineCount().value;
  while (lexer_ && bytes > 0) {
    LineRange range = unsettled_.FirstWithin(wanted);
    if (range.Empty()) break;
    std::int64_t line = range.first;
    bool agrees = true;
    for (; line < range.end && bytes > 0; ++line) {
      std::string_view content = Bytes(text, text.LineRange(LineNo(line)));
      bytes -= static_cast<std::int64_t>(content.size()) + 1;
      LexState next = lexer_->Lex(content, StateOf(line), nullptr);
      agrees = line + 1 == count || next == StateOf(line + 1);
      if (agrees) continue;
      states_.Set(static_cast<std::size_t>(line) + 1, next);
      changed = {changed.Empty() ? line + 1 : std::min(changed.first, line + 1),
                 std::max(changed.end, line + 2)};
    }
    unsettled_.Remove({range.first, line});
    if (!agrees) unsettled_.Add({line, line + 1});
  }
  return changed;
}

const StyleRuns& LineStates::RunsOf(const TextBuffer& text, LineNo line) {
  TextRange range = text.LineRange(line);
  std::string_view content = Bytes(text, range);
  if (lexer_)
    lexer_->Lex(content, StateOf(line.value), &runs_);
  else
    runs_.Clear();
  runs_.Add(static_cast<std::size_t>(range.Length()), Style::kText);
  runs_.JoinBlanks(content);
  return runs_;
}

}  // namespace tarrow
