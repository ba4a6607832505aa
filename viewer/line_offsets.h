// The 32-bit offsets at which the lines of a file start, in blocks, so that growing never moves what is there
// and the cost is 4 bytes a line, whatever the number.
#pragma once

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

  void Clear() {
    blocks_.clear();
    blocks_.shrink_to_fit();
    next_ = end_ = nullptr;
  }

 private:
  static constexpr unsigned kBits = 14;
  static constexpr std::size_t kMask = (std::size_t{1} << kBits) - 1;

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
