// The lines of one compared file that are read and not yet settled, and the search for lines equal to
// another.
//
// Lines are taken as equal when their lengths fall in the same bucket (79 and above share one) and a rotating
// 16-bit hash and a 16-bit xor over their characters both agree; two different lines may so pass as equal.
// Bucket, hash and xor make up a key of 32 bits, by which lines are found without walking a bucket.
//
// Keys and the table that finds lines by them are made only when a search asks for them: where two files
// agree, lines come and go without ever being hashed. Line numbers begin at 1.
#pragma once

#include "tools/comparison/line_window.h"

#include <array>
#include <cstdint>
#include <deque>
#include <vector>

namespace tarrow {

// Up to five numbers of lines, in order.
struct FoundLines {
  std::array<std::uint64_t, 5> numbers;
  std::size_t count = 0;
};

class PendingLines {
 public:
  PendingLines(ByteSource& source, LineForm form) : window_(source, form), form_(form) {}

  // Reads a line, to be appended or skipped; false at the end. Throws as LineWindow::Next does.
  [[nodiscard]] bool Read(LineSpan& line) { return window_.Next(line); }
  std::string_view Text(const LineSpan& line) const { return window_.Text(line); }

  void Append(const LineSpan& line);
  // Counts a line as read and settled at once. There must be nothing pending.
  void Skip();
  void DropThrough(std::uint64_t number);

  std::uint64_t LinesRead() const { return settled_ + lines_.size(); }
  std::uint64_t Settled() const { return settled_; }
  std::uint64_t First() const { return settled_ + 1; }
  bool Empty() const { return lines_.empty(); }
  const LineSpan& operator[](std::uint64_t number) const { return lines_[number - First()].span; }
  std::string_view TextOf(std::uint64_t number) const { return Text((*this)[number]); }

  // What the pending lines cost in memory, in bytes: their characters and kLineCost for each.
  static constexpr std::uint64_t kLineCost = 32;
  std::uint64_t Cost() const { return textSize_ + lines_.size() * kLineCost; }

  // The first five pending lines that are equal to `line` of `other`.
  FoundLines FindEqual(PendingLines& other, std::uint64_t line);
  // Whether a pending line is equal to `line` of `other`.
  bool Equal(std::uint64_t number, PendingLines& other, std::uint64_t line);

 private:
  struct Line {
    LineSpan span;
    std::uint32_t key = 0;
    std::uint32_t next = 0;  // distance to the next line of the same slot, or 0
  };
  // The lines whose keys meet in a slot, counted from `origin_`; 0 is none.
  struct Slot {
    std::uint32_t first = 0;
    std::uint32_t last = 0;
  };
  static_assert(kLineCost == sizeof(Line) + 2 * sizeof(Slot));

  void CatchUp();
  void Rebuild();
  void Thread(std::uint64_t number);
  bool SameText(std::uint64_t number, const PendingLines& other, std::uint64_t line) const;
  Line& At(std::uint64_t number) { return lines_[number - First()]; }
  Slot& SlotOf(std::uint32_t key) { return slots_[(key * 0x9E3779B1u) >> slotShift_]; }
  std::uint32_t FromOrigin(std::uint64_t number) const {
    return static_cast<std::uint32_t>(number - origin_);
  }

  LineWindow window_;
  LineForm form_;
  std::deque<Line> lines_;
  std::vector<Slot> slots_;
  unsigned slotShift_ = 32;
  std::uint64_t settled_ = 0;
  std::uint64_t indexed_ = 0;  // lines up to this number are in the table
  std::uint64_t origin_ = 0;
  std::uint64_t textSize_ = 0;
};

}  // namespace tarrow
