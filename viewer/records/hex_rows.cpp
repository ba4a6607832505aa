#include "viewer/records/hex_rows.h"

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tarrow {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

void PutOffset(std::uint32_t offset, char* row) {
  int digits = (static_cast<int>(std::bit_width(offset | 1)) + 3) / 4;
  for (int i = 7; i > 7 - digits; --i, offset >>= 4) row[i] = kDigits[offset & 15];
  row[8] = ':';
}

// A character shows when its low seven bits do: 0x80 to 0x9F as a dot, 0x7F and 0xA0 up as themselves.
void PutBytes(std::string_view bytes, char* row) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    auto byte = static_cast<unsigned char>(bytes[i]);
    row[HexColumn(i)] = kDigits[byte >> 4];
    row[HexColumn(i) + 1] = kDigits[byte & 15];
    row[kHexTextColumn + i] = (byte & 0x7F) >= 0x20 ? bytes[i] : '.';
  }
}

#if defined(__SSE2__)

__m128i HexDigits(__m128i nibbles) {
  __m128i letters = _mm_cmpgt_epi8(nibbles, _mm_set1_epi8(9));
  __m128i digits = _mm_add_epi8(nibbles, _mm_set1_epi8('0'));
  return _mm_add_epi8(digits, _mm_and_si128(letters, _mm_set1_epi8('A' - '0' - 10)));
}

// The same for a whole row at once.
void PutSixteenBytes(const char* bytes, char* row) {
  __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)), low4 = _mm_set1_epi8(15);
  __m128i high = HexDigits(_mm_and_si128(_mm_srli_epi16(block, 4), low4));
  __m128i low = HexDigits(_mm_and_si128(block, low4));
  __m128i halves[] = {_mm_unpacklo_epi8(high, low), _mm_unpackhi_epi8(high, low)};
  for (std::size_t half : {0, 1}) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(row + HexColumn(8 * half)), halves[half]);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(row + HexColumn(8 * half + 4)),
                     _mm_srli_si128(halves[half], 8));
  }
  __m128i control = _mm_cmplt_epi8(_mm_and_si128(block, _mm_set1_epi8(0x7F)), _mm_set1_epi8(0x20));
  __m128i text = _mm_or_si128(_mm_andnot_si128(control, block), _mm_and_si128(control, _mm_set1_epi8('.')));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(row + kHexTextColumn), text);
}

#else

void PutSixteenBytes(const char* bytes, char* row) {
  PutBytes({bytes, kHexRowBytes}, row);
}

#endif

}  // namespace

std::size_t FormatHexRow(std::uint32_t offset, std::string_view bytes, std::array<char, kHexRowWidth>& row) {
  row.fill(' ');
  PutOffset(offset, row.data());
  bytes = bytes.substr(0, kHexRowBytes);
  if (bytes.size() == kHexRowBytes)
    PutSixteenBytes(bytes.data(), row.data());
  else
    PutBytes(bytes, row.data());
  return kHexTextColumn + bytes.size();
}

}  // namespace tarrow
