// The matcher's memory of what else could be tried: points of (instruction, text position), newest first.
//
// A run of points that differ only in their text positions, one byte apart, is kept as one entry. The count
// and the limit are those of single points: there is room for 128, doubled as needed; a push by OnFailureJump
// that would double it beyond 4096 fails, and with it the match. A dormant point may double it further, and
// then ordinary ones use the room.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace tarrow {

class FailureStack {
 public:
  // The points (step, first) to (step, last), the last the newest.
  struct Entry {
    std::int32_t step;  // kDormant marks a point that is only ever discarded
    std::int32_t first;
    std::int32_t last;
  };

  static constexpr std::int32_t kDormant = -1;

  FailureStack() = default;
  FailureStack(const FailureStack&) = delete;
  FailureStack& operator=(const FailureStack&) = delete;

  void Clear() {
    count_ = entryCount_ = 0;
    room_ = kFirstRoom;
  }

  bool Empty() const { return entryCount_ == 0; }

  // Has a dormant point made more room than ordinary ones can?
  bool IsStretched() const { return room_ > 2 * kMostToDouble; }

  // Makes sure that `points` more could be pushed; false when the limit is reached.
  [[nodiscard]] bool Reserve(std::int32_t points) {
    while (points > room_ - count_) {
      if (room_ > kMostToDouble) return false;
      room_ *= 2;
    }
    return true;
  }

  // Pushes points for which room has been reserved; last >= first. Throws std::bad_alloc.
  void Push(std::int32_t step, std::int32_t first, std::int32_t last) {
    Add({step, first, last});
    count_ += last - first + 1;
  }

  // Throws std::bad_alloc.
  void PushDormant() {
    if (count_ == room_) room_ *= 2;
    Add({kDormant, 0, 0});
    ++count_;
  }

  // The newest entry; it may be shortened from its newer end by Drop().
  const Entry& Top() const { return entries_[entryCount_ - 1]; }

  // Removes the newest `points` of the newest entry.
  void Drop(std::int32_t points) {
    Entry& top = entries_[entryCount_ - 1];
    count_ -= points;
    top.last -= points;
    if (top.last < top.first) --entryCount_;
  }

 private:
  static constexpr std::int32_t kFirstRoom = 128;
  static constexpr std::int32_t kMostToDouble = 2048;

  void Add(Entry entry) {
    if (entryCount_ == entryRoom_) Grow();
    entries_[entryCount_++] = entry;
  }

  void Grow() {
    auto grown = std::make_unique_for_overwrite<Entry[]>(2 * static_cast<std::size_t>(entryRoom_));
    std::copy(entries_, entries_ + entryCount_, grown.get());
    entryRoom_ *= 2;
    allocated_ = std::move(grown);
    entries_ = allocated_.get();
  }

  std::int32_t count_ = 0;  // of points
  std::int32_t room_ = kFirstRoom;
  std::int32_t entryCount_ = 0;
  std::int32_t entryRoom_ = kFirstRoom;
  Entry* entries_ = fixed_.data();
  std::unique_ptr<Entry[]> allocated_;
  std::array<Entry, kFirstRoom> fixed_;
};

}  // namespace tarrow
