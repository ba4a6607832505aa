// A stretch of address space whose front part is backed by memory.
//
// A text grows at its gap, and growing in place needs addresses that nobody else takes: they are reserved
// ahead and given memory only as the text needs it. Sizes are bytes, rounded up to kCommitStep. Failure to
// get either throws CMemoryException and changes nothing.
#pragma once

#include <cstddef>
#include <utility>

namespace tarrow {

class ReservedMemory {
 public:
  // Memory is committed in steps of this size, the granularity of reservations on every platform.
  static constexpr std::size_t kCommitStep = 65536;

  ReservedMemory() = default;
  explicit ReservedMemory(std::size_t reserve);
  ReservedMemory(ReservedMemory&& other) noexcept { Swap(other); }
  ReservedMemory& operator=(ReservedMemory&& other) noexcept {
    Swap(other);
    return *this;
  }
  ~ReservedMemory();

  // Backs at least the first `bytes` with memory; what is committed already keeps its contents.
  void Commit(std::size_t bytes);

  char* Data() const { return data_; }
  std::size_t Reserved() const { return reserved_; }
  std::size_t Committed() const { return committed_; }

  // Lets a test refuse a reservation or commitment: asked before each, null again afterwards.
  using Permission = bool (*)();
  static void SetPermission(Permission ask);

 private:
  void Swap(ReservedMemory& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(reserved_, other.reserved_);
    std::swap(committed_, other.committed_);
  }

  char* data_ = nullptr;
  std::size_t reserved_ = 0;
  std::size_t committed_ = 0;
};

}  // namespace tarrow
