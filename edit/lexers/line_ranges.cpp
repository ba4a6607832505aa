#include "edit/lexers/line_ranges.h"

#include <algorithm>

namespace tarrow {

LineRange LineRanges::FirstWithin(LineRange wanted) const {
  for (const LineRange& range : All()) {
    LineRange common{std::max(range.first, wanted.first), std::min(range.end, wanted.end)};
    if (!common.Empty()) return common;
  }
  return {};
}

void LineRanges::Insert(std::size_t at, LineRange range) noexcept {
  std::copy_backward(ranges_.begin() + static_cast<std::ptrdiff_t>(at),
                     ranges_.begin() + static_cast<std::ptrdiff_t>(count_),
                     ranges_.begin() + static_cast<std::ptrdiff_t>(count_) + 1);
  ranges_[at] = range;
  if (++count_ > kMost) JoinNearest();
}

void LineRanges::Erase(std::size_t from, std::size_t to) noexcept {
  std::copy(ranges_.begin() + static_cast<std::ptrdiff_t>(to),
            ranges_.begin() + static_cast<std::ptrdiff_t>(count_),
            ranges_.begin() + static_cast<std::ptrdiff_t>(from));
  count_ -= to - from;
}

void LineRanges::JoinNearest() noexcept {
  std::size_t nearest = 1;
  auto distance = [&](std::size_t i) { return ranges_[i].first - ranges_[i - 1].end; };
  for (std::size_t i = 2; i < count_; ++i)
    if (distance(i) < distance(nearest)) nearest = i;
  ranges_[nearest - 1].end = ranges_[nearest].end;
  Erase(nearest, nearest + 1);
}

// What touches the new range becomes part of it.
void LineRanges::Add(LineRange range) noexcept {
  if (range.Empty()) return;
  std::size_t from = 0;
  while (from < count_ && ranges_[from].end < range.first) ++from;
  std::size_t to = from;
  for (; to < count_ && ranges_[to].first <= range.end; ++to) {
    range.first = std::min(range.first, ranges_[to].first);
    range.end = std::max(range.end, ranges_[to].end);
  }
  Erase(from, to);
  Insert(from, range);
}

void LineRanges::Remove(LineRange range) noexcept {
  for (std::size_t i = 0; i < count_;) {
    LineRange old = ranges_[i];
    if (range.Empty() || old.end <= range.first || range.end <= old.first) {
      ++i;
      continue;
    }
    Erase(i, i + 1);
    // Put back in descending order: joined or not, what is left stays in place.
    if (old.end > range.end) Insert(i, {range.end, old.end});
    if (old.first < range.first) Insert(i, {old.first, range.first});
    if (old.end >= range.end) return;
    if (old.first < range.first) ++i;
  }
}

void LineRanges::Shift(std::int64_t line, std::int64_t removed, std::int64_t added) noexcept {
  Remove({line + 1, line + 1 + removed});
  // A range that reaches over the place is cut in two there.
  std::int64_t behind = line + 1;
  for (std::size_t i = 0; i < count_ && added > 0; ++i) {
    LineRange old = ranges_[i];
    if (old.first >= behind || old.end <= behind) continue;
    ranges_[i].end = behind;
    Insert(i + 1, {behind, old.end});
    break;
  }
  for (LineRange& range : std::span(ranges_.data(), count_)) {
    if (range.first >= behind) range.first += added - removed;
    if (range.end > behind) range.end += added - removed;
  }
}

}  // namespace tarrow
