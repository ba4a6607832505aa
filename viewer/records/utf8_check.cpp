#include "viewer/records/utf8_check.h"

#include "base/byte_scan.h"

namespace tarrow {

void Utf8Check::Take(std::string_view piece) {
  for (std::size_t at = 0; isUtf8_ && at < piece.size();) {
    if (missing_ == 0) at += FindHighByte(piece.substr(at));
    for (; at < piece.size(); ++at) {
      auto byte = static_cast<unsigned char>(piece[at]);
      if (missing_ == 0 && byte < 0x80) break;
      if (!(isUtf8_ = missing_ ? TakeTrail(byte) : TakeLead(byte))) return;
    }
  }
}

// The second byte of some characters has less choice: overlong forms, surrogates and numbers beyond the last
// character are none.
bool Utf8Check::TakeLead(unsigned char lead) {
  if (lead < 0xC2 || lead > 0xF4) return false;
  missing_ = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  least_ = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  most_ = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  return true;
}

bool Utf8Check::TakeTrail(unsigned char trail) {
  if (trail < least_ || trail > most_) return false;
  least_ = 0x80;
  most_ = 0xBF;
  --missing_;
  return true;
}

}  // namespace tarrow
