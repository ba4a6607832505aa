// Blocks of text as bit masks, for scanners that want every byte of some kind and not just the next: one bit
// per byte, the lowest for the first. A block is as many bytes as a register has bits.
#pragma once

#include <bit>
#include <climits>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tarrow {

using ByteMask = std::size_t;
inline constexpr std::size_t kMaskBlock = sizeof(ByteMask) * CHAR_BIT;

// The line feeds and carriage returns of a block, and whether it holds bytes below 0x20 that are no white
// space (tab to carriage return).
struct ControlMasks {
  ByteMask lf = 0;
  ByteMask cr = 0;
  bool hasOther = false;
};

#if defined(__SSE2__)

// The mask of what `hits` finds in the 16-byte pieces of the block at `text`.
template <typename Hits>
ByteMask MaskOf(const char* text, Hits hits) {
  ByteMask mask = 0;
  for (std::size_t i = 0; i < kMaskBlock; i += 16) {
    __m128i piece = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
    mask |= static_cast<ByteMask>(static_cast<unsigned>(_mm_movemask_epi8(hits(piece)))) << i;
  }
  return mask;
}

inline ByteMask MaskEqual(const char* text, char byte) {
  __m128i want = _mm_set1_epi8(byte);
  return MaskOf(text, [=](__m128i piece) { return _mm_cmpeq_epi8(piece, want); });
}

// The bytes of low..high, as unsigned numbers.
inline ByteMask MaskBetween(const char* text, unsigned char low, unsigned char high) {
  __m128i from = _mm_set1_epi8(static_cast<char>(low)), span = _mm_set1_epi8(static_cast<char>(high - low));
  return MaskOf(text, [=](__m128i piece) {
    __m128i above = _mm_sub_epi8(piece, from);
    return _mm_cmpeq_epi8(_mm_min_epu8(above, span), above);
  });
}

inline ControlMasks MaskControls(const char* text) {
  const __m128i lf = _mm_set1_epi8('\n'), cr = _mm_set1_epi8('\r');
  const __m128i firstWhite = _mm_set1_epi8('\t'), whiteSpan = _mm_set1_epi8('\r' - '\t');
  __m128i anyCr = _mm_setzero_si128(), least = _mm_set1_epi8(-1);
  ControlMasks masks;
  masks.lf = MaskOf(text, [&](__m128i piece) {
    anyCr = _mm_or_si128(anyCr, _mm_cmpeq_epi8(piece, cr));
    // The least byte of all, white space counting as 0xFF.
    __m128i above = _mm_sub_epi8(piece, firstWhite);
    __m128i isWhite = _mm_cmpeq_epi8(_mm_min_epu8(above, whiteSpan), above);
    least = _mm_min_epu8(least, _mm_or_si128(piece, isWhite));
    return _mm_cmpeq_epi8(piece, lf);
  });
  if (_mm_movemask_epi8(anyCr)) masks.cr = MaskEqual(text, '\r');
  __m128i control = _mm_cmpeq_epi8(_mm_min_epu8(least, _mm_set1_epi8(0x1F)), least);
  masks.hasOther = _mm_movemask_epi8(control) != 0;
  return masks;
}

#else

inline ByteMask MaskBetween(const char* text, unsigned char low, unsigned char high) {
  ByteMask mask = 0;
  for (std::size_t i = 0; i < kMaskBlock; ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    mask |= static_cast<ByteMask>(byte >= low && byte <= high) << i;
  }
  return mask;
}

inline ByteMask MaskEqual(const char* text, char byte) {
  auto value = static_cast<unsigned char>(byte);
  return MaskBetween(text, value, value);
}

inline ControlMasks MaskControls(const char* text) {
  ByteMask other = MaskBetween(text, 0, 0x1F) & ~MaskBetween(text, '\t', '\r');
  return {MaskEqual(text, '\n'), MaskEqual(text, '\r'), other != 0};
}

#endif

inline unsigned LowestBit(ByteMask mask) {
  return static_cast<unsigned>(std::countr_zero(mask));
}

// The bits below the lowest one set in `mask`; all of them when none is.
inline ByteMask BitsBelow(ByteMask mask) {
  return (mask & (~mask + 1)) - 1;
}

}  // namespace tarrow
