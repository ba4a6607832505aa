#include "viewer/records/line_scan.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tarrow {

bool LineScan::Scan(std::string_view piece) {
  if (piece.empty()) return true;
  if (std::exchange(heldCr_, false)) {
    bool pair = piece[0] == '\n';
    if (!pair) terminator_ = LineTerminator::kCr;
    offset_ += pair;
    offsets_.Append(offset_);
    piece.remove_prefix(pair);
  }
  for (; piece.size() > kMaskBlock; piece.remove_prefix(kMaskBlock))
    if (!ScanBlock(piece.data(), kMaskBlock, piece[kMaskBlock])) return false;
  if (piece.empty()) return true;
  heldCr_ = piece.back() == '\r';
  piece.remove_suffix(heldCr_);
  char last[kMaskBlock];
  std::memset(last, ' ', sizeof last);
  std::copy(piece.begin(), piece.end(), last);
  if (!ScanBlock(last, piece.size(), ' ')) return false;
  offset_ += heldCr_;
  return true;
}

// Takes a block that is followed by `next` and ends in blanks when `size` is less than a block.
bool LineScan::ScanBlock(const char* block, std::size_t size, char next) {
  constexpr unsigned kTop = kMaskBlock - 1;
  bool afterCr = std::exchange(afterCr_, false);
  auto [lf, cr, hasOther] = MaskControls(block);
  ByteMask pairs = cr & (lf >> 1 | static_cast<ByteMask>(next == '\n') << kTop);
  ByteMask loneLf = lf & ~(cr << 1 | static_cast<ByteMask>(afterCr)), loneCr = cr & ~pairs;
  ByteMask ends = lf | loneCr;
  // Of two masks the greater has the last bit.
  if (loneLf | loneCr) terminator_ = loneLf > loneCr ? LineTerminator::kLf : LineTerminator::kCr;
  afterCr_ = cr >> kTop;
  if (hasOther && !asked_) {
    ByteMask refused = MaskBetween(block, 0, 0x1F) & ~MaskBetween(block, '\t', '\r');
    offsets_.AppendBits(offset_ + 1, ends & BitsBelow(refused));
    if (!Ask(static_cast<unsigned char>(block[LowestBit(refused)]))) return false;
    ends &= ~BitsBelow(refused);
  }
  offsets_.AppendBits(offset_ + 1, ends);
  offset_ += static_cast<std::uint32_t>(size);
  return true;
}

bool LineScan::Ask(unsigned char control) {
  asked_ = true;
  ++offset_;
  return !question_ || question_(control);
}

void LineScan::Finish() {
  if (std::exchange(heldCr_, false)) {
    terminator_ = LineTerminator::kCr;
    offsets_.Append(offset_);
  }
  if (offset_ != offsets_[offsets_.Size() - 1])
    offsets_.Append(offset_ + (terminator_ == LineTerminator::kCrLf ? 2 : 1));
}

}  // namespace tarrow
