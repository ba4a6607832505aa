// Memory that ends at a chosen moment: the heap and the reservations of texts alike.
#pragma once

namespace tarrow {

// While one lives, the allocation number `countdown` (from 0) and all behind it fail.
class FailingAllocations {
 public:
  explicit FailingAllocations(long countdown);
  ~FailingAllocations();
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;

  // Whether an allocation has been refused.
  bool Refused() const;
};

}  // namespace tarrow
