// LineStates: the state of a lexer at the start of every line of a text, one byte each, found out bit by bit.
//
// A line is settled when its state and that of the next line belong together: lexing it from the one gives
// the other. When all lines are settled, all states are right. A new text is unsettled throughout; a change
// unsettles the lines that it touches. Settling a line whose next one turns out to have had another state
// unsettles that one, and so on until they agree again. Lines may be settled in any order: a screen somewhere
// in a large text is lexed from a little above it, with what is stored there as a guess, and corrected when
// the settling from the top arrives with something else.
//
// The text tells of its changes itself. Where memory ends, there is no lexer any more and everything is plain
// text.
#pragma once

#include "edit/lexers/lexer.h"
#include "edit/lexers/line_ranges.h"
#include "edit/text/gap_vector.h"
#include "edit/text/line_listener.h"
#include "edit/text/text_buffer.h"

#include <limits>
#include <string>

namespace tarrow {

class LineStates final : public LineListener {
 public:
  static constexpr LineRange kAllLines{0, std::numeric_limits<std::int64_t>::max()};

  LineStates() = default;
  LineStates(const LineStates&) = delete;
  LineStates& operator=(const LineStates&) = delete;

  // Begins anew with this text, which is read by `lexer` from now on (null: by none) and tells the object of
  // its changes. Both outlive it, or are replaced before they go.
  void Reset(TextBuffer& text, const Lexer* lexer);

  bool HasLexer() const { return lexer_ != nullptr; }
  bool IsSettled() const { return unsettled_.Empty(); }
  bool IsSettled(LineRange lines) const { return unsettled_.FirstWithin(lines).Empty(); }

  // Settles lines of `wanted` that are not, from the first on, until about `bytes` have been lexed. Returns
  // the lines whose state has changed, and maybe others between them.
  LineRange Settle(const TextBuffer& text, LineRange wanted, std::int64_t bytes);

  // What the parts of a line are, by the state that is stored for it; plain blanks count as part of what they
  // stand beside. Valid until the next call.
  const StyleRuns& RunsOf(const TextBuffer& text, LineNo line);

  void OnLinesChanged(const LineChange& change) noexcept override;

 private:
  std::string_view Bytes(const TextBuffer& text, TextRange line);
  LexState StateOf(std::int64_t line) const { return states_[static_cast<std::size_t>(line)]; }

  const Lexer* lexer_ = nullptr;
  GapVector<LexState> states_;
  LineRanges unsettled_;
  StyleRuns runs_;
  std::string copy_;  // of a line that lies on both sides of the gap of its text
};

}  // namespace tarrow
