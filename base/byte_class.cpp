#include "base/byte_class.h"

#include "base/byte_mask.h"
#include "base/byte_scan.h"

#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tarrow {

ByteClass::ByteClass(const std::array<bool, 256>& members) : table_(members) {
  MakeRanges();
}

void ByteClass::MakeRanges() {
  for (bool complement : {false, true}) {
    int count = 0;
    for (int c = 0; c < 256 && count <= kMaxRanges; ++c) {
      if (table_[c] == complement) continue;
      int last = c;
      while (last < 255 && table_[last + 1] != complement) ++last;
      if (count < kMaxRanges) {
        low_[count].fill(static_cast<std::uint8_t>(c));
        high_[count].fill(static_cast<std::uint8_t>(last));
      }
      ++count;
      c = last;
    }
    if (count == 0 || count > kMaxRanges) continue;
    rangeCount_ = count;
    isComplement_ = complement;
    return;
  }
  rangeCount_ = 0;
}

ByteClass operator|(const ByteClass& a, const ByteClass& b) {
  std::array<bool, 256> members;
  for (int c = 0; c < 256; ++c) members[c] = a.table_[c] || b.table_[c];
  return ByteClass(members);
}

ByteClass operator&(const ByteClass& a, const ByteClass& b) {
  std::array<bool, 256> members;
  for (int c = 0; c < 256; ++c) members[c] = a.table_[c] && b.table_[c];
  return ByteClass(members);
}

std::size_t ByteClass::CountTrailing(std::string_view text) const {
  std::size_t left = text.size();
  while (left > 0 && Has(text[left - 1])) --left;
  return text.size() - left;
}

#if defined(__SSE2__)

// A bit for each byte of the block that lies in one of the ranges.
template <int kRanges>
unsigned ByteClass::Hits(const char* block) const {
  auto load = [](const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); };
  __m128i bytes = load(block), hits = _mm_setzero_si128();
  for (int r = 0; r < kRanges; ++r) {
    __m128i clamped = _mm_min_epu8(_mm_max_epu8(bytes, load(low_[r].data())), load(high_[r].data()));
    hits = _mm_or_si128(hits, _mm_cmpeq_epi8(clamped, bytes));
  }
  return static_cast<unsigned>(_mm_movemask_epi8(hits));
}

template <int kRanges>
std::size_t ByteClass::FindInBlocks(std::string_view text, unsigned flip) const {
  std::size_t i = 0;
  for (; i + kBlock <= text.size(); i += kBlock) {
    _mm_prefetch(text.data() + i + kPrefetchAhead, _MM_HINT_T0);
    if (unsigned hits = Hits<kRanges>(text.data() + i) ^ flip)
      return i + static_cast<std::size_t>(std::countr_zero(hits));
  }
  if (i == text.size()) return i;
  // The rest lies in a last block that overlaps the one before, which had no hit.
  i = text.size() - kBlock;
  unsigned hits = Hits<kRanges>(text.data() + i) ^ flip;
  return hits ? i + static_cast<std::size_t>(std::countr_zero(hits)) : text.size();
}

// `text` is at least a block long.
std::size_t ByteClass::FindFar(std::string_view text, bool member) const {
  unsigned flip = member == isComplement_ ? 0xFFFF : 0;
  switch (rangeCount_) {
    case 1:
      return FindInBlocks<1>(text, flip);
    case 2:
      return FindInBlocks<2>(text, flip);
    case 3:
      return FindInBlocks<3>(text, flip);
    case 4:
      return FindInBlocks<4>(text, flip);
    default:
      break;
  }
  for (std::size_t i = kLookedUp; i < text.size(); ++i)
    if (Has(text[i]) == member) return i;
  return text.size();
}

// The members among the bytes of a mask's block.
template <int kRanges>
ByteMask ByteClass::MaskOfRanges(const char* block) const {
  ByteMask mask = 0;
  for (std::size_t k = 0; k < kMaskBlock; k += kBlock)
    mask |= static_cast<ByteMask>(Hits<kRanges>(block + k)) << k;
  return isComplement_ ? ~mask : mask;
}

ByteMask ByteClass::MembersMask(const char* block) const {
  switch (rangeCount_) {
    case 1:
      return MaskOfRanges<1>(block);
    case 2:
      return MaskOfRanges<2>(block);
    case 3:
      return MaskOfRanges<3>(block);
    case 4:
      return MaskOfRanges<4>(block);
    default:
      break;
  }
  ByteMask mask = 0;
  for (std::size_t k = 0; k < kMaskBlock; ++k) mask |= static_cast<ByteMask>(Has(block[k])) << k;
  return mask;
}

// Each mask, shifted against itself, shows where a whole run lies within its block; the next block begins
// with the first place that the shifts could not judge. Returns the first place not judged when nothing was
// found.
template <int kRanges>
std::size_t ByteClass::FindRunInBlocks(std::string_view text, std::size_t length) const {
  std::size_t i = 0;
  for (; i + kMaskBlock <= text.size(); i += kMaskBlock - length + 1) {
    ByteMask runs = MaskOfRanges<kRanges>(text.data() + i);
    std::size_t have = 1;
    for (; have * 2 <= length; have *= 2) runs &= runs >> have;
    runs &= runs >> (length - have);
    if (runs) return i + LowestBit(runs);
  }
  return i;
}

#else

ByteMask ByteClass::MembersMask(const char* block) const {
  ByteMask mask = 0;
  for (std::size_t k = 0; k < kMaskBlock; ++k) mask |= static_cast<ByteMask>(Has(block[k])) << k;
  return mask;
}

template <int kRanges>
std::size_t ByteClass::FindRunInBlocks(std::string_view, std::size_t) const {
  return 0;
}

std::size_t ByteClass::FindFar(std::string_view text, bool member) const {
  for (std::size_t i = kLookedUp; i < text.size(); ++i)
    if (Has(text[i]) == member) return i;
  return text.size();
}

#endif

std::size_t ByteClass::FindFirstAfterNot(const ByteClass& before, std::string_view text) const {
  std::size_t i = 0;
  for (; i + kMaskBlock < text.size(); i += kMaskBlock)
    if (ByteMask hits = MembersMask(text.data() + i + 1) & ~before.MembersMask(text.data() + i))
      return i + 1 + LowestBit(hits);
  for (++i; i < text.size(); ++i)
    if (Has(text[i]) && !before.Has(text[i - 1])) return i;
  return text.size();
}

std::size_t ByteClass::FindRun(std::string_view text, std::size_t length) const {
  std::size_t i = 0;
  if (length <= kMaskBlock / 2) {
    switch (rangeCount_) {
      case 1:
        i = FindRunInBlocks<1>(text, length);
        break;
      case 2:
        i = FindRunInBlocks<2>(text, length);
        break;
      case 3:
        i = FindRunInBlocks<3>(text, length);
        break;
      case 4:
        i = FindRunInBlocks<4>(text, length);
        break;
      default:
        break;
    }
  }
  for (std::size_t run = 0; i < text.size(); ++i) {
    run = Has(text[i]) ? run + 1 : 0;
    if (run == length) return i + 1 - length;
  }
  return text.size();
}

}  // namespace tarrow
