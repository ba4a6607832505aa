#include "search/pattern/literal_finder.h"

#include "base/byte_scan.h"

#include <array>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
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

// Tries the first `places` places of `text`.
template <bool kFold>
std::size_t LiteralFinder::FindPairs(std::string_view text, std::size_t places) const {
  const char* p = text.data();
  std::size_t i = 0;
#if defined(__SSE2__)
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
    unsigned hits = hitsAt(p + i) | hitsAt(p + i + 16) << 16;
    for (; hits; hits &= hits - 1) {
      std::size_t at = i + static_cast<std::size_t>(std::countr_zero(hits));
      if (IsAt(p + at)) return at;
    }
  }
#endif
  for (; i < places; ++i)
    if (Hits(first_, p + i) && Hits(second_, p + i) && IsAt(p + i)) return i;
  return kNotFound;
}

}  // namespace tarrow
