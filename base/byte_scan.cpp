#include "base/byte_scan.h"

#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tarrow {
namespace {

#if defined(__SSE2__)

constexpr std::size_t kBlock = 16;

using Block = __m128i;

Block Load(const char* p) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
Block Splat(char c) {
  return _mm_set1_epi8(c);
}
unsigned Mask(Block equal) {
  return static_cast<unsigned>(_mm_movemask_epi8(equal));
}
unsigned Lowest(unsigned mask) {
  return static_cast<unsigned>(std::countr_zero(mask));
}

// Walks `text` forwards in blocks; `hits` gives a bit for each wanted byte of a block, `wanted` tests one
// byte.
template <typename Hits, typename Wanted>
std::size_t FindForward(std::string_view text, Hits hits, Wanted wanted) {
  const char* p = text.data();
  std::size_t n = text.size(), i = 0;
  for (; i + 2 * kBlock <= n; i += 2 * kBlock) {
    _mm_prefetch(p + i + kPrefetchAhead, _MM_HINT_T0);
    unsigned low = hits(Load(p + i)), high = hits(Load(p + i + kBlock));
    if (low | high) return low ? i + Lowest(low) : i + kBlock + Lowest(high);
  }
  if (n < kBlock) {
    for (; i < n; ++i)
      if (wanted(p[i])) return i;
    return n;
  }
  if (i + kBlock <= n) {
    if (unsigned found = hits(Load(p + i))) return i + Lowest(found);
    i += kBlock;
  }
  // The rest lies in a last block that overlaps the one before, which had no hit.
  if (i == n) return n;
  unsigned found = hits(Load(p + n - kBlock));
  return found ? n - kBlock + Lowest(found) : n;
}

#else

template <typename Hits, typename Wanted>
std::size_t FindForward(std::string_view text, Hits, Wanted wanted) {
  for (std::size_t i = 0; i < text.size(); ++i)
    if (wanted(text[i])) return i;
  return text.size();
}

#endif

}  // namespace

#if defined(__SSE2__)

std::size_t FindByte(std::string_view text, char byte) {
  Block want = Splat(byte);
  return FindForward(
      text, [=](Block b) { return Mask(_mm_cmpeq_epi8(b, want)); }, [=](char c) { return c == byte; });
}

std::size_t FindEitherByte(std::string_view text, char first, char second) {
  Block a = Splat(first), b = Splat(second);
  return FindForward(
      text, [=](Block x) { return Mask(_mm_or_si128(_mm_cmpeq_epi8(x, a), _mm_cmpeq_epi8(x, b))); },
      [=](char c) { return c == first || c == second; });
}

std::size_t FindHighByte(std::string_view text) {
  return FindForward(
      text, [](Block b) { return Mask(b); }, [](char c) { return static_cast<signed char>(c) < 0; });
}

// Each lane counts its own hits (a compare yields -1), and is emptied before it could overflow.
std::size_t CountByte(std::string_view text, char byte) {
  const char* p = text.data();
  std::size_t n = text.size(), i = 0, count = 0;
  Block want = Splat(byte), zero = _mm_setzero_si128();
  while (i + kBlock <= n) {
    Block lanes = zero;
    for (int round = 0; round < 255 && i + kBlock <= n; ++round, i += kBlock)
      lanes = _mm_sub_epi8(lanes, _mm_cmpeq_epi8(Load(p + i), want));
    Block sums = _mm_sad_epu8(lanes, zero);
    count += static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) +
             static_cast<std::size_t>(_mm_cvtsi128_si32(_mm_srli_si128(sums, 8)));
  }
  for (; i < n; ++i) count += p[i] == byte;
  return count;
}

// A gap of 256 bytes holds three whole groups of 64 in a row, the last one perhaps cut short by the end.
ByteCount CountByteAndGaps(std::string_view text, char byte) {
  constexpr std::size_t kGroup = 4 * kBlock;
  const char* p = text.data();
  std::size_t n = text.size(), i = 0;
  unsigned emptyGroups = 0, mostEmpty = 0;
  ByteCount result;
  Block want = Splat(byte), zero = _mm_setzero_si128();
  auto note = [&](bool isEmpty) {
    emptyGroups = isEmpty ? emptyGroups + 1 : 0;
    mostEmpty = mostEmpty < emptyGroups ? emptyGroups : mostEmpty;
  };
  while (i + kGroup <= n) {
    Block lanes = zero;
    for (int round = 0; round < 63 && i + kGroup <= n; ++round, i += kGroup) {
      _mm_prefetch(p + i + kPrefetchAhead, _MM_HINT_T0);
      Block a = _mm_cmpeq_epi8(Load(p + i), want), b = _mm_cmpeq_epi8(Load(p + i + kBlock), want);
      Block c = _mm_cmpeq_epi8(Load(p + i + 2 * kBlock), want),
            d = _mm_cmpeq_epi8(Load(p + i + 3 * kBlock), want);
      Block sum = _mm_add_epi8(_mm_add_epi8(a, b), _mm_add_epi8(c, d));
      lanes = _mm_sub_epi8(lanes, sum);
      note(Mask(_mm_cmpeq_epi8(sum, zero)) == 0xFFFF);
    }
    Block sums = _mm_sad_epu8(lanes, zero);
    result.count += static_cast<std::size_t>(_mm_cvtsi128_si32(sums)) +
                    static_cast<std::size_t>(_mm_cvtsi128_si32(_mm_srli_si128(sums, 8)));
  }
  std::size_t rest = 0;
  for (; i < n; ++i) rest += p[i] == byte;
  if (n % kGroup != 0) note(rest == 0);
  result.count += rest;
  result.hasLongGap = mostEmpty >= 3;
  return result;
}

std::size_t FindLastByte(std::string_view text, char byte) {
  const char* p = text.data();
  std::size_t i = text.size();
  Block want = Splat(byte);
  for (; i >= kBlock; i -= kBlock)
    if (unsigned hits = Mask(_mm_cmpeq_epi8(Load(p + i - kBlock), want)))
      return i - kBlock + static_cast<std::size_t>(std::bit_width(hits)) - 1;
  while (i > 0)
    if (p[--i] == byte) return i;
  return text.size();
}

std::size_t CopyUntilByte(std::string_view text, char* to, char byte) {
  const char* p = text.data();
  std::size_t n = text.size(), i = 0;
  Block want = Splat(byte);
  for (; i + kBlock <= n; i += kBlock) {
    Block block = Load(p + i);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), block);
    if (unsigned hits = Mask(_mm_cmpeq_epi8(block, want))) return i + Lowest(hits);
  }
  for (; i < n && p[i] != byte; ++i) to[i] = p[i];
  return i;
}

#else

std::size_t FindByte(std::string_view text, char byte) {
  return FindForward(text, nullptr, [=](char c) { return c == byte; });
}

std::size_t FindEitherByte(std::string_view text, char first, char second) {
  return FindForward(text, nullptr, [=](char c) { return c == first || c == second; });
}

std::size_t FindHighByte(std::string_view text) {
  return FindForward(text, nullptr, [](char c) { return static_cast<signed char>(c) < 0; });
}

std::size_t CountByte(std::string_view text, char byte) {
  std::size_t count = 0;
  for (char c : text) count += c == byte;
  return count;
}

ByteCount CountByteAndGaps(std::string_view text, char byte) {
  ByteCount result;
  std::size_t gap = 0;
  for (char c : text) {
    gap = c == byte ? 0 : gap + 1;
    result.count += c == byte;
    result.hasLongGap |= gap == 256;
  }
  return result;
}

std::size_t FindLastByte(std::string_view text, char byte) {
  std::size_t at = text.rfind(byte);
  return at == std::string_view::npos ? text.size() : at;
}

std::size_t CopyUntilByte(std::string_view text, char* to, char byte) {
  std::size_t i = 0;
  for (; i < text.size() && text[i] != byte; ++i) to[i] = text[i];
  return i;
}

#endif

}  // namespace tarrow
