// A sequence with a gap: elements before the gap lie at the low end of its memory, those behind it at the
// high end, so that inserting and removing at the gap moves nothing.
//
// A change elsewhere first moves the gap there, which costs what lies between; people change text near where
// they last changed it. Only EnsureGap throws (CMemoryException), and then nothing has changed: a caller
// makes room for everything first and cannot fail afterwards. `Guard` elements behind the last one belong to
// the sequence's memory but not to the sequence (a text keeps a NUL there). Checked builds fill the gap with
// 0xCD.
#pragma once

#include "base/exceptions.h"
#include "edit/text/reserved_memory.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <type_traits>
#include <utility>

namespace tarrow {

template <typename T, std::size_t Guard = 0>
class GapVector {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  // A reservation for a full-sized sequence where addresses abound; elsewhere it grows with the contents.
  static constexpr std::size_t kWholeReservation = sizeof(void*) > 4 ? std::size_t{1} << 31 : 0;
  static constexpr std::size_t kLeastReservation = std::size_t{1} << 20;

  GapVector() = default;
  GapVector(GapVector&& other) noexcept { Swap(other); }
  GapVector& operator=(GapVector&& other) noexcept {
    Swap(other);
    return *this;
  }

  std::size_t Size() const { return head_ + Tail().size(); }
  std::size_t GapAt() const { return head_; }
  std::size_t GapSize() const { return tail_ - head_; }
  std::span<const T> Head() const { return {Data(), head_}; }
  std::span<const T> Tail() const { return {Data() + tail_, capacity_ - tail_}; }
  T operator[](std::size_t i) const { return Data()[i < head_ ? i : i + GapSize()]; }
  void Set(std::size_t i, T element) { Data()[i < head_ ? i : i + GapSize()] = element; }

  // The elements behind the gap, to be changed in place.
  std::span<T> MutableTail() { return {Data() + tail_, capacity_ - tail_}; }
  std::span<T> MutableHead() { return {Data(), head_}; }

  // Makes the gap at least `count` wide. Everything handed out before may have moved.
  void EnsureGap(std::size_t count) {
    if (GapSize() >= count && Data()) return;
    std::size_t least = Size() + count;
    if (least < count || least > kMaxElements) throw CMemoryException();
    std::size_t roomy = least + std::min(std::max(kLeastSlack, least / 16), kMaxElements - least);
    try {
      Grow(roomy);
    } catch (const CMemoryException&) {
      Grow(least);
    }
  }

  void MoveGap(std::size_t at) noexcept {
    T* data = Data();
    if (at < head_) {
      std::size_t n = head_ - at;
      Move(data + tail_ - n, data + at, n);
      tail_ -= n;
      head_ -= n;
    } else if (at > head_) {
      std::size_t n = at - head_;
      Move(data + head_, data + tail_, n);
      tail_ += n;
      head_ += n;
    }
    FillGap(GapSize());
  }

  // Takes `count` elements from behind the gap away.
  void RemoveAfterGap(std::size_t count) noexcept {
    tail_ += count;
    FillGap(count);
  }

  // Puts elements in front of the gap, which must have room for them.
  void Append(std::span<const T> elements) noexcept {
    if (!elements.empty()) std::memcpy(Data() + head_, elements.data(), elements.size_bytes());
    head_ += elements.size();
  }
  void Append(T element) noexcept { Data()[head_++] = element; }

  // Everything becomes gap, with room for `count` elements, of which the first `kept` stay as they are;
  // FinishFill says how many have been written into it.
  std::span<T> PrepareFill(std::size_t kept, std::size_t count) {
    tail_ = capacity_;
    head_ = kept;
    EnsureGap(std::max(count, kept) - kept);
    head_ = 0;
    return {Data(), count};
  }
  void FinishFill(std::size_t count) noexcept { head_ = count; }

  // How many bytes were moved since the beginning: the cost of changes, counted instead of timed.
  std::uint64_t MovedBytes() const { return moved_; }

  T* Data() const { return reinterpret_cast<T*>(memory_.Data()); }

 private:
  static constexpr std::size_t kLeastSlack = ReservedMemory::kCommitStep / sizeof(T);
  static constexpr std::size_t kMaxElements =
      static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()) / sizeof(T) - Guard;

  void Swap(GapVector& other) noexcept {
    std::swap(memory_, other.memory_);
    std::swap(head_, other.head_);
    std::swap(tail_, other.tail_);
    std::swap(capacity_, other.capacity_);
    std::swap(moved_, other.moved_);
  }

  void Grow(std::size_t capacity) {
    std::size_t bytes = (capacity + Guard) * sizeof(T);
    if (bytes <= memory_.Reserved()) {
      memory_.Commit(bytes);
      Widen(memory_.Committed() / sizeof(T) - Guard);
      return;
    }
    ReservedMemory larger = Reserve(bytes);
    larger.Commit(bytes);
    if (Size()) {
      std::memcpy(larger.Data(), Data(), head_ * sizeof(T));
      std::memcpy(larger.Data() + tail_ * sizeof(T), Data() + tail_, Tail().size_bytes());
      moved_ += Size() * sizeof(T);
    }
    memory_ = std::move(larger);
    Widen(memory_.Committed() / sizeof(T) - Guard);
  }

  static ReservedMemory Reserve(std::size_t bytes) {
    std::size_t generous = kWholeReservation ? kWholeReservation : bytes + bytes / 2;
    try {
      return ReservedMemory(std::max({generous, bytes, kLeastReservation}));
    } catch (const CMemoryException&) {
      return ReservedMemory(bytes);
    }
  }

  // Moves what lies behind the gap to the end of the larger memory.
  void Widen(std::size_t capacity) noexcept {
    std::size_t behind = capacity_ - tail_, tail = capacity - behind;
    T* data = Data();
    if (behind) Move(data + tail, data + tail_, behind);
    tail_ = tail;
    capacity_ = capacity;
    for (std::size_t i = 0; i < Guard; ++i) data[capacity + i] = T{};
    FillGap(GapSize());
  }

  void Move(T* to, const T* from, std::size_t count) noexcept {
    std::memmove(to, from, count * sizeof(T));
    moved_ += count * sizeof(T);
  }

  // Marks the `count` elements at the high end of the gap as dead.
  void FillGap([[maybe_unused]] std::size_t count) noexcept {
#if defined(TARROW_CHECKED)
    if (Data() && count) std::memset(static_cast<void*>(Data() + tail_ - count), 0xCD, count * sizeof(T));
#endif
  }

  ReservedMemory memory_;
  std::size_t head_ = 0;      // elements in front of the gap
  std::size_t tail_ = 0;      // where the elements behind the gap begin
  std::size_t capacity_ = 0;  // where they end
  std::uint64_t moved_ = 0;
};

}  // namespace tarrow
