#include "search/pattern/literal_finder.h"

#include "base/byte_scan.h"

#include <array>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Not for Windows: its stack is aligned to 16 bytes, and GCC may put a wider register there all the same.
#if defined(__x86_64__) && !defined(_WIN32)
#include <immintrin.h>
#define TARROW_AVX2
#endif

namespace tarrow {
namespace {

// The bytes of C source code, the most common first; all others are rarer still.
constexpr std::string_view kCommonFirst =
    " etionrasd_lcu\r\nfpmh,;)(-*b/gy=.0v>T\tEkSIxACwRN1DO\"PLz&}{FMUq2G:B+#VH3j[]<W4K8X6Y5!|'7%@\\9?J^~QZ`$";

constexpr std::array<std::uint8_t, 256> MakeCommonness() {
  std::array<std::uint8_t, 256> table{};
  for (std::size_t i = 0; i < kCommonFirst.size(); ++i)
    table[static_cast<std::uint8_t>(kCommonFirst[i])] = static_cast<std::uint8_t>(kCommonFirst.size() - i);
  return table;
}

constexpr std::array<std::uint8_t, 256> kCommonness = MakeCommonness();

#if defined(TARROW_AVX2)
const bool kHasAvx2 = __builtin_cpu_supports("avx2");
#endif

constexpr int CommonnessOf(char c) {
  return kCommonness[static_cast<std::uint8_t>(c)];
}

}  // namespace

LiteralFinder::LiteralFinder(std::string_view bytes, bool foldCase) : bytes_(bytes), foldCase_(foldCase) {
  std::size_t rarest = 0;
  for (std::size_t i = 1; i < bytes_.size(); ++i)
    if (CommonnessOf(bytes_[i]) < CommonnessOf(bytes_[rarest])) rarest = i;
  std::size_t next = rarest == 0 ? bytes_.size() - 1 : 0;
  for (std::size_t i = 0; i < bytes_.size(); ++i)
    if (i != rarest && CommonnessOf(bytes_[i]) < CommonnessOf(bytes_[next])) next = i;
  first_ = MakeProbe(rarest);
  second_ = MakeProbe(next);
}

LiteralFinder::Probe LiteralFinder::MakeProbe(std::size_t offset) const {
  auto byte = static_cast<std::uint8_t>(bytes_[offset]);
  bool hasTwoCases = foldCase_ && byte >= 'A' && byte <= 'Z';
  if (!hasTwoCases) return {offset, byte, 0};
  return {offset, static_cast<std::uint8_t>(byte | 0x20), 0x20};
}

int LiteralFinder::Commonness(std::string_view bytes) {
  int least = 255;
  for (char c : bytes) least = CommonnessOf(c) < least ? CommonnessOf(c) : least;
  return least;
}

bool LiteralFinder::IsAt(const char* text) const {
  if (!foldCase_) return std::memcmp(text, bytes_.data(), bytes_.size()) == 0;
  for (std::size_t i = 0; i < bytes_.size(); ++i)
    if (kFoldToUpper[static_cast<std::uint8_t>(text[i])] != static_cast<std::uint8_t>(bytes_[i]))
      return false;
  return true;
}

std::size_t LiteralFinder::Find(std::string_view text) const {
  if (bytes_.empty() || text.size() < bytes_.size()) return kNotFound;
  std::size_t places = text.size() - bytes_.size() + 1;
  if (bytes_.size() > 1) return foldCase_ ? FindPairs<true>(text, places) : FindPairs<false>(text, places);
  std::size_t at = first_.caseBit ? FindEitherByte(text, bytes_[0], static_cast<char>(first_.byte))
                                  : FindByte(text, bytes_[0]);
  return at < text.size() ? at : kNotFound;
}

#if defined(__SSE2__)

// Goes on from `i` in blocks of 32 places to the first one in which the probes hit, and gives the hits as
// bits; 0 when no whole block before `places` has any.
template <bool kFold>
unsigned LiteralFinder::NextHits(const char* p, std::size_t& i, std::size_t places) const {
  auto splat = [](std::uint8_t c) { return _mm_set1_epi8(static_cast<char>(c)); };
  const __m128i byte1 = splat(first_.byte), bit1 = splat(first_.caseBit);
  const __m128i byte2 = splat(second_.byte), bit2 = splat(second_.caseBit);
  auto hitsOf = [](const char* from, __m128i byte, __m128i bit) {
    __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    return _mm_cmpeq_epi8(kFold ? _mm_or_si128(block, bit) : block, byte);
  };
  auto hitsAt = [&](const char* at) {
    __m128i both =
        _mm_and_si128(hitsOf(at + first_.offset, byte1, bit1), hitsOf(at + second_.offset, byte2, bit2));
    return static_cast<unsigned>(_mm_movemask_epi8(both));
  };
  for (; i + 32 <= places; i += 32) {
    _mm_prefetch(p + i + kPrefetchAhead, _MM_HINT_T0);
    if (unsigned hits = hitsAt(p + i) | hitsAt(p + i + 16) << 16) return hits;
  }
  return 0;
}

#endif

#if defined(TARROW_AVX2)

// The same with the wider registers that nearly every machine has by now. Two blocks a round, since both are
// empty nearly always.
template <bool kFold>
__attribute__((target("avx2"))) unsigned LiteralFinder::NextHitsAvx2(const char* p, std::size_t& i,
                                                                     std::size_t places) const {
  const __m256i byte1 = _mm256_set1_epi8(static_cast<char>(first_.byte));
  const __m256i byte2 = _mm256_set1_epi8(static_cast<char>(second_.byte));
  const __m256i bit1 = _mm256_set1_epi8(static_cast<char>(first_.caseBit));
  const __m256i bit2 = _mm256_set1_epi8(static_cast<char>(second_.caseBit));
  const char *from1 = p + first_.offset, *from2 = p + second_.offset;
  for (; i + 64 <= places; i += 64) {
    _mm_prefetch(from1 + i + kPrefetchAhead, _MM_HINT_T0);
    __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from1 + i));
    __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from2 + i));
    __m256i c = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from1 + i + 32));
    __m256i d = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from2 + i + 32));
    if (kFold) {
      a = _mm256_or_si256(a, bit1);
      b = _mm256_or_si256(b, bit2);
      c = _mm256_or_si256(c, bit1);
      d = _mm256_or_si256(d, bit2);
    }
    __m256i low = _mm256_and_si256(_mm256_cmpeq_epi8(a, byte1), _mm256_cmpeq_epi8(b, byte2));
    __m256i high = _mm256_and_si256(_mm256_cmpeq_epi8(c, byte1), _mm256_cmpeq_epi8(d, byte2));
    __m256i any = _mm256_or_si256(low, high);
    if (_mm256_testz_si256(any, any)) continue;
    if (auto hits = static_cast<unsigned>(_mm256_movemask_epi8(low))) return hits;
    i += 32;
    return static_cast<unsigned>(_mm256_movemask_epi8(high));
  }
  return NextHits<kFold>(p, i, places);
}

#endif

// Tries the first `places` places of `text`.
template <bool kFold>
std::size_t LiteralFinder::FindPairs(std::string_view text, std::size_t places) const {
  const char* p = text.data();
  std::size_t i = 0;
#if defined(__SSE2__)
  auto next = &LiteralFinder::NextHits<kFold>;
#if defined(TARROW_AVX2)
  if (kHasAvx2) next = &LiteralFinder::NextHitsAvx2<kFold>;
#endif
  while (unsigned hits = (this->*next)(p, i, places)) {
    for (; hits; hits &= hits - 1) {
      std::size_t at = i + static_cast<std::size_t>(std::countr_zero(hits));
      if (IsAt(p + at)) return at;
    }
    i += 32;
  }
#endif
  for (; i < places; ++i)
    if (Hits(first_, p + i) && Hits(second_, p + i) && IsAt(p + i)) return i;
  return kNotFound;
}

}  // namespace tarrow
