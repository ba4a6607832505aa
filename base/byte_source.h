// Where engines read bytes from: a file natively, a CFile in the program, a string in a test.
//
// An engine takes a ByteSource and never opens anything itself. Offsets and sizes are bytes, 64 bits.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace tarrow {

class ByteSource {
 public:
  virtual ~ByteSource() = default;

  // Reads up to `into.size()` bytes at the current position and moves past them. Returns how many were read;
  // fewer than asked for only at the end. Throws CFileException.
  [[nodiscard]] virtual std::size_t Read(std::span<char> into) = 0;

  // Moves to `position`, which may lie beyond the end. Throws CFileException when it cannot be reached, as on
  // a pipe.
  virtual void Seek(std::uint64_t position) = 0;

  // The size now. Throws CFileException where there is none, as on a pipe.
  [[nodiscard]] virtual std::uint64_t Size() = 0;

  // All bytes from the current position to the end, in memory without having been read, for as long as the
  // source lives. Empty where the system does not offer that, and where reading is as good.
  [[nodiscard]] virtual std::string_view Map() { return {}; }

  // Moves past `count` bytes of Map() that have been looked at. False, without moving, when some of them were
  // no longer the file's, because somebody has cut it: what was seen there is not to be believed. Throws
  // CFileException.
  [[nodiscard]] virtual bool PassMapped(std::size_t count) { return count == 0; }
};

// The bytes of a string that outlives the source.
class StringSource final : public ByteSource {
 public:
  explicit StringSource(std::string_view bytes) : bytes_(bytes) {}

  std::size_t Read(std::span<char> into) override {
    std::size_t n = position_ < bytes_.size() ? std::min(into.size(), bytes_.size() - position_) : 0;
    if (n) std::memcpy(into.data(), bytes_.data() + position_, n);
    position_ += n;
    return n;
  }
  void Seek(std::uint64_t position) override { position_ = static_cast<std::size_t>(position); }
  std::uint64_t Size() override { return bytes_.size(); }

 private:
  std::string_view bytes_;
  std::size_t position_ = 0;
};

}  // namespace tarrow
