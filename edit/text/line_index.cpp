#include "edit/text/line_index.h"

#include "base/byte_scan.h"

#include <algorithm>

namespace tarrow {
namespace {

// Calls `found` with the offset in `text` at which each line begins that `text` brings about: behind every LF
// that follows a CR, the LF being in `text` or the byte behind it, the CR in `text` or the byte before it.
template <typename Found>
void ForEachStart(int before, std::string_view text, int after, Found found) {
  std::size_t at = 0;
  while ((at += FindByte(text.substr(at), '\n')) < text.size()) {
    int previous = at == 0 ? before : text[at - 1];
    ++at;
    if (previous == '\r') found(at);
  }
  int last = text.empty() ? before : text.back();
  if (after == '\n' && last == '\r') found(text.size() + 1);
}

// How many of `starts` are not behind `at`. Looks from the front in growing steps: what is asked for is most
// often near the gap.
std::size_t CountUpTo(std::span<const BytePos> starts, BytePos at) {
  std::size_t step = 1;
  while (step < starts.size() && starts[step] <= at) step *= 2;
  auto from = starts.begin() + static_cast<std::ptrdiff_t>(step / 2);
  auto to = starts.begin() + static_cast<std::ptrdiff_t>(std::min(step, starts.size()));
  return static_cast<std::size_t>(std::upper_bound(from, to, at) - starts.begin());
}

}  // namespace

BytePos LineIndex::Start(LineNo line) const {
  if (line.value <= 0) return BytePos(0);
  auto i = static_cast<std::size_t>(line.value) - 1;
  return i < starts_.GapAt() ? starts_[i] : starts_[i] + size_;
}

// The number of starts at or before `at`, which is the index of the first one behind it.
std::size_t LineIndex::FirstBehind(BytePos at) const {
  auto head = starts_.Head(), tail = starts_.Tail();
  if (!head.empty() && at < head.back())
    return static_cast<std::size_t>(std::upper_bound(head.begin(), head.end(), at) - head.begin());
  return head.size() + CountUpTo(tail, at - size_);
}

LineNo LineIndex::LineOf(BytePos at) const {
  return LineNo(static_cast<std::int64_t>(FirstBehind(at)));
}

void LineIndex::MoveGap(std::size_t to) noexcept {
  std::size_t from = starts_.GapAt();
  if (to == from) return;
  starts_.MoveGap(to);
  if (to < from) {
    for (BytePos& start : starts_.MutableTail().first(from - to)) start -= size_;
  } else {
    for (BytePos& start : starts_.MutableHead().last(to - from)) start += size_;
  }
}

LineChange LineIndex::Replace(TextRange range, int before, std::string_view text, int after) noexcept {
  // The lines that `range` begins: behind its first byte at the earliest, behind the LF that follows it at
  // the latest.
  std::size_t first = FirstBehind(range.start), last = FirstBehind(range.end + 1);
  LineChange change{LineNo(static_cast<std::int64_t>(first)), 0, static_cast<std::int64_t>(last - first)};
  change.offset = range.start - Start(change.line);
  MoveGap(first);
  starts_.RemoveAfterGap(last - first);
  size_ += static_cast<std::int32_t>(text.size()) - range.Length();
  ForEachStart(before, text, after,
               [&](std::size_t offset) { starts_.Append(range.start + static_cast<std::int64_t>(offset)); });
  change.added = static_cast<std::int64_t>(starts_.GapAt() - first);
  return change;
}

std::size_t LineIndex::CountStarts(int before, std::string_view text, int after) {
  std::size_t count = 0;
  ForEachStart(before, text, after, [&](std::size_t) { ++count; });
  return count;
}

void LineIndex::Scan(std::string_view text) {
  std::size_t count = CountStarts(-1, text, -1);
  BytePos* next = PrepareStarts(0, count).data();
  ForEachStart(-1, text, -1,
               [&](std::size_t offset) { *next++ = BytePos(static_cast<std::int64_t>(offset)); });
  FinishStarts(count, static_cast<std::int32_t>(text.size()));
}

void LineIndex::FinishStarts(std::size_t count, std::int32_t textSize) noexcept {
  starts_.FinishFill(count);
  size_ = textSize;
}

}  // namespace tarrow
