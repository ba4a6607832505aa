// The matcher's memory of what else could be tried: (code position, text position) pairs, newest first.
//
// The first points live in the object; only deep backtracking allocates. The limit bounds memory: a push by
// OnFailureJump that would grow the stack beyond 4096 points fails, and with it the match. A dormant point
// may grow it further, and then ordinary ones may use the room.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace tarrow {

struct FailurePoint {
  std::int32_t code;  // 0 marks a dormant point, which is only ever discarded
  std::int32_t text;
};

class FailureStack {
 public:
  FailureStack() = default;
  FailureStack(const FailureStack&) = delete;
  FailureStack& operator=(const FailureStack&) = delete;

  bool Empty() const { return size_ == 0; }

  // False when the limit is reached.
  [[nodiscard]] bool Push(FailurePoint point) {
    if (size_ == capacity_) {
      if (capacity_ > kMostToDouble) return false;
      Grow();
    }
    points_[size_++] = point;
    return true;
  }

  // Pushes a point that only FinalizeJump will take away again. Throws std::bad_alloc.
  void PushDormant() {
    if (size_ == capacity_) Grow();
    points_[size_++] = {0, 0};
  }

  FailurePoint Pop() { return points_[--size_]; }

 private:
  static constexpr std::int32_t kFixedPoints = 128;
  static constexpr std::int32_t kMostToDouble = 2048;

  void Grow() {
    auto grown = std::make_unique_for_overwrite<FailurePoint[]>(2 * static_cast<std::size_t>(capacity_));
    std::copy(points_, points_ + size_, grown.get());
    capacity_ *= 2;
    allocated_ = std::move(grown);
    points_ = allocated_.get();
  }

  std::array<FailurePoint, kFixedPoints> fixed_;
  std::unique_ptr<FailurePoint[]> allocated_;
  FailurePoint* points_ = fixed_.data();
  std::int32_t size_ = 0;
  std::int32_t capacity_ = kFixedPoints;
};

}  // namespace tarrow
