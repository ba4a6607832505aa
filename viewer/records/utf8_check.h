// Whether a file is UTF-8, told from its bytes as they come by in pieces.
//
// It is known of each byte which values may follow it, so a character may lie across the border of pieces.
#pragma once

#include <string_view>

namespace tarrow {

class Utf8Check {
 public:
  void Take(std::string_view piece);

  // Whether all the bytes so far are UTF-8.
  bool IsUtf8() const { return isUtf8_ && missing_ == 0; }

 private:
  bool TakeLead(unsigned char lead);
  bool TakeTrail(unsigned char trail);

  bool isUtf8_ = true;
  int missing_ = 0;                     // bytes of the character that has begun
  unsigned char least_ = 0, most_ = 0;  // what the next of them may be
};

}  // namespace tarrow
