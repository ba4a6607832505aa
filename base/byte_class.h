// A set of bytes, made to be scanned for: where does a byte of the set come next, how far does a run of them
// go.
//
// A set of few ranges, or the complement of one, is compared 16 bytes at a time; any other goes byte by byte
// through its table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarrow {

class ByteClass {
 public:
  // The empty class.
  ByteClass() = default;
  explicit ByteClass(const std::array<bool, 256>& members);

  bool Has(char c) const { return table_[static_cast<std::uint8_t>(c)]; }
  const std::array<bool, 256>& Members() const { return table_; }

  // The offset of the first byte of `text` that is a member, or that is none; `text.size()` without any.
  std::size_t FindFirst(std::string_view text) const { return Find<true>(text); }
  std::size_t FindFirstNot(std::string_view text) const { return Find<false>(text); }

  // The offset of the first `length` members in a row; `text.size()` without any. `length` is at least 1.
  std::size_t FindRun(std::string_view text, std::size_t length) const;

  // The offset of the first member that follows a byte which is no member of `before`; the first byte of
  // `text` only counts as such a byte. `text.size()` without any.
  std::size_t FindFirstAfterNot(const ByteClass& before, std::string_view text) const;

  // How many bytes at the end of `text` are members, without a break.
  std::size_t CountTrailing(std::string_view text) const;

  friend ByteClass operator|(const ByteClass& a, const ByteClass& b);
  friend ByteClass operator&(const ByteClass& a, const ByteClass& b);

 private:
  static constexpr int kMaxRanges = 4;
  static constexpr std::size_t kBlock = 16;
  static constexpr std::size_t kLookedUp = 4;  // bytes looked up before a block is compared
  using Splat = std::array<std::uint8_t, kBlock>;

  void MakeRanges();

  template <bool kMember>
  std::size_t Find(std::string_view text) const {
    std::size_t n = text.size() < kBlock ? text.size() : kLookedUp;
    for (std::size_t i = 0; i < n; ++i)
      if (Has(text[i]) == kMember) return i;
    return n == text.size() ? n : FindFar(text, kMember);
  }
  std::size_t FindFar(std::string_view text, bool member) const;

  template <int kRanges>
  std::size_t FindInBlocks(std::string_view text, unsigned flip) const;
  template <int kRanges>
  std::size_t FindRunInBlocks(std::string_view text, std::size_t length) const;
  template <int kRanges>
  unsigned Hits(const char* block) const;
  template <int kRanges>
  std::size_t MaskOfRanges(const char* block) const;
  std::size_t MembersMask(const char* block) const;

  std::array<bool, 256> table_{};
  int rangeCount_ = 0;         // 0 when the set is too ragged for ranges
  bool isComplement_ = false;  // the ranges are those of the bytes that are not members
  std::array<Splat, kMaxRanges> low_{};
  std::array<Splat, kMaxRanges> high_{};
};

}  // namespace tarrow
