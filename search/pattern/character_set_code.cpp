#include "search/pattern/character_set_code.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr char32_t kFirstBeyond = 0x80;

}  // namespace

void CharacterSetCode::Add(char32_t low, char32_t high) {
  bool isAscii = low < kFirstBeyond && high < kFirstBeyond;
  if (isAscii) {
    for (int c = fold_[low]; c <= fold_[high]; ++c) AddAscii(c);
    return;
  }
  for (char32_t c = low; c <= high && c < kFirstBeyond; ++c) AddAscii(fold_[c]);
  if (low <= high) ranges_.push_back({std::max(low, kFirstBeyond), high});
}

void CharacterSetCode::Write(bool isNegated, std::vector<std::uint8_t>& code) {
  JoinRanges(ranges_);
  bool isOfBytes = !isNegated && ranges_.empty();
  Opcode op = isOfBytes ? Opcode::kCharSet : isNegated ? Opcode::kUtf8CharSetNot : Opcode::kUtf8CharSet;
  auto put = [&](std::size_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) code.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
  };
  std::size_t length = bitmap_.size();
  while (length > 0 && bitmap_[length - 1] == 0) --length;
  code.push_back(static_cast<std::uint8_t>(op));
  put(length, 1);
  code.insert(code.end(), bitmap_.begin(), bitmap_.begin() + static_cast<std::ptrdiff_t>(length));
  if (isOfBytes) return;
  put(ranges_.size(), 2);
  for (CodeRange range : ranges_) {
    put(range.low, kCodeRangeSize / 2);
    put(range.high, kCodeRangeSize / 2);
  }
}

}  // namespace tarrow
