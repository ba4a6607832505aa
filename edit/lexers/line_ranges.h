// A few ranges of lines, apart from one another and in ascending order.
//
// There is room for kMost; the two that are nearest to each other become one when there would be more. So
// the set may grow by lines that nobody has added, and it never needs memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tarrow {

// The lines from `first` up to, but without, `end`.
struct LineRange {
  std::int64_t first = 0;
  std::int64_t end = 0;

  bool Empty() const { return first >= end; }
  friend bool operator==(const LineRange&, const LineRange&) = default;
};

class LineRanges {
 public:
  static constexpr std::size_t kMost = 16;

  bool Empty() const { return count_ == 0; }
  std::span<const LineRange> All() const { return {ranges_.data(), count_}; }
  void Clear() { count_ = 0; }

  // The first part of the set that lies within `wanted`; empty when none does.
  LineRange FirstWithin(LineRange wanted) const;

  void Add(LineRange range) noexcept;
  void Remove(LineRange range) noexcept;

  // Behind `line`, `removed` lines have gone and `added` have come, which are not in the set.
  void Shift(std::int64_t line, std::int64_t removed, std::int64_t added) noexcept;

 private:
  void Insert(std::size_t at, LineRange range) noexcept;
  void Erase(std::size_t from, std::size_t to) noexcept;
  void JoinNearest() noexcept;

  std::array<LineRange, kMost + 1> ranges_{};
  std::size_t count_ = 0;
};

}  // namespace tarrow
