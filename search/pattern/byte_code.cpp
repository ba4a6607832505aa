#include "search/pattern/byte_code.h"

namespace tarrow {

bool MayFinalizeLoop(ByteCode code, int at) {
  int next = at + kJumpSize;
  while (OpcodeAt(code, next) == Opcode::kGroupEnd || OpcodeAt(code, next) == Opcode::kGroupStart) ++next;
  if (next >= static_cast<int>(code.size())) return true;

  bool isExact = OpcodeAt(code, next) == Opcode::kExact;
  if (!isExact && OpcodeAt(code, next) != Opcode::kLineEnd) return false;
  int c = isExact ? CodeByte(code, next + 2) : '\r';

  int body = JumpTarget(code, at) + kJumpSize;
  switch (OpcodeAt(code, body)) {
    case Opcode::kExact:
      return CodeByte(code, body + 2) != c;
    case Opcode::kCharSet:
      return !IsInBitmap(code, body, c);
    case Opcode::kCharSetNot:
      return IsInBitmap(code, body, c);
    default:
      return false;
  }
}

}  // namespace tarrow
