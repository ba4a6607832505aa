// Where the lines of a text begin. A line ends at CR LF and nowhere else.
//
// The starts lie in a gap vector: those in front of the gap count from the beginning of the text, those
// behind it from its end (they are zero or negative there). A change at the gap therefore leaves every stored
// number right, whatever the size of the text; moving the gap rewrites only the starts that it passes.
// Functions that throw (CMemoryException) have changed nothing.
#pragma once

#include "base/units.h"
#include "edit/text/gap_vector.h"
#include "edit/text/line_listener.h"

#include <span>
#include <string_view>

namespace tarrow {

class LineIndex {
 public:
  LineNo Count() const { return LineNo(static_cast<std::int64_t>(starts_.Size()) + 1); }
  LineNo Last() const { return LineNo(static_cast<std::int64_t>(starts_.Size())); }

  // The start of a line; `line` must not lie beyond the last one.
  BytePos Start(LineNo line) const;

  // The line that holds `at`; a position behind the end lies in the last line.
  LineNo LineOf(BytePos at) const;

  // Makes room for `count` more starts, so that as many can be added without failing.
  void EnsureRoom(std::size_t count) { starts_.EnsureGap(count); }

  // `range` of the text is replaced by `text`, which stands between the bytes `before` and `after` (-1:
  // none). EnsureRoom(CountStarts(before, text, after)) must have been called. Returns what becomes of the
  // lines.
  LineChange Replace(TextRange range, int before, std::string_view text, int after) noexcept;

  // How many lines begin within or right behind `text`.
  static std::size_t CountStarts(int before, std::string_view text, int after);

  // Indexes a whole text at once: by scanning it, or from `count` starts (of all lines but the first) that
  // the caller writes, ascending, into what PrepareStarts returns, of which the first `kept` were there
  // before.
  void Scan(std::string_view text);
  std::span<BytePos> PrepareStarts(std::size_t kept, std::size_t count) {
    return starts_.PrepareFill(kept, count);
  }
  void FinishStarts(std::size_t count, std::int32_t textSize) noexcept;

  std::uint64_t MovedBytes() const { return starts_.MovedBytes(); }

 private:
  std::size_t FirstBehind(BytePos at) const;
  void MoveGap(std::size_t to) noexcept;

  GapVector<BytePos> starts_;  // of every line but the first
  std::int32_t size_ = 0;      // of the text
};

}  // namespace tarrow
