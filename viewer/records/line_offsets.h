// The 32-bit offsets at which the lines of a file start, in blocks, so that growing never moves what is there
// and the cost is 4 bytes a line, whatever the number.
#pragma once

#include "base/byte_mask.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace tarrow {

class LineOffsets {
 public:
  std::size_t Size() const { return (blocks_.size() << kBits) - static_cast<std::size_t>(end_ - next_); }
  std::uint32_t operator[](std::size_t i) const { return blocks_[i >> kBits][i & kMask]; }

  // Throws std::bad_alloc, leaving what was there.
  void Append(std::uint32_t offset) {
    if (next_ == end_) AddBlock();
    *next_++ = offset;
  }

  // Appends `base` + the number of each bit set in `bits`. Most masks have few bits, but never the same
  // number of them: the first four are written without a branch that could be guessed wrong.
  void AppendBits(std::uint32_t base, ByteMask bits) {
    if (end_ - next_ < kUnguessed) return AppendEach(base, bits);
    for (int i = 0; i < kUnguessed; ++i) {
      *next_ = base + LowestBit(bits | kTopBit);
      next_ += bits != 0;
      bits &= bits - 1;
    }
    if (bits) AppendEach(base, bits);
  }

  // The greatest distance from an offset to the next.
  std::uint32_t GreatestStep() const {
    std::uint32_t greatest = 0, previous = 0;
    for (std::size_t i = 0, size = Size(); i < size; i += kMask + 1) {
      const std::uint32_t* block = blocks_[i >> kBits].get();
      for (std::size_t k = 0, n = std::min(kMask + 1, size - i); k < n; previous = block[k++])
        greatest = std::max(greatest, block[k] - previous);
    }
    return greatest;
  }

  void Clear() {
    blocks_.clear();
    blocks_.shrink_to_fit();
    next_ = end_ = nullptr;
  }

 private:
  static constexpr unsigned kBits = 14;
  static constexpr std::size_t kMask = (std::size_t{1} << kBits) - 1;

  static constexpr int kUnguessed = 4;
  static constexpr ByteMask kTopBit = ByteMask{1} << (kMaskBlock - 1);

  void AppendEach(std::uint32_t base, ByteMask bits) {
    for (; bits; bits &= bits - 1) Append(base + LowestBit(bits));
  }

  void AddBlock() {
    blocks_.push_back(std::make_unique_for_overwrite<std::uint32_t[]>(kMask + 1));
    next_ = blocks_.back().get();
    end_ = next_ + kMask + 1;
  }

  std::vector<std::unique_ptr<std::uint32_t[]>> blocks_;
  std::uint32_t* next_ = nullptr;  // where the next offset goes, in the newest block
  std::uint32_t* end_ = nullptr;
};

}  // namespace tarrow
