#include "search/pattern/byte_code.h"

#include "search/pattern/character_set.h"
#include "search/pattern/utf8_text.h"

namespace tarrow {
namespace {

bool IsExact(Opcode op) {
  return op == Opcode::kExact || op == Opcode::kUtf8FoldedExact;
}

// Whether the set at `at` could match the character that the bytes of code at `next` begin with.
bool CanBegin(ByteCode code, int at, int next, bool foldCase) {
  int c = CodeByte(code, next);
  bool isNegated = OpcodeAt(code, at) == Opcode::kUtf8CharSetNot;
  if (c < 0x80) return IsInBitmap(code, at, c) != isNegated;
  auto bytes = reinterpret_cast<const char*>(code.data());
  return CharacterSet(code, at, foldCase)
      .HasBeyond(Utf8In({bytes, code.size()}, static_cast<std::size_t>(next)).code);
}

}  // namespace

bool MayFinalizeLoop(ByteCode code, int at, bool foldCase) {
  int next = at + kJumpSize;
  while (OpcodeAt(code, next) == Opcode::kGroupEnd || OpcodeAt(code, next) == Opcode::kGroupStart) ++next;
  if (next >= static_cast<int>(code.size())) return true;

  bool isExact = IsExact(OpcodeAt(code, next));
  if (!isExact && OpcodeAt(code, next) != Opcode::kLineEnd) return false;
  int c = isExact ? CodeByte(code, next + 2) : '\r';

  int body = JumpTarget(code, at) + kJumpSize;
  switch (OpcodeAt(code, body)) {
    case Opcode::kExact:
    case Opcode::kUtf8FoldedExact:
      return CodeByte(code, body + 2) != c;
    case Opcode::kCharSet:
      return !IsInBitmap(code, body, c);
    case Opcode::kCharSetNot:
      return IsInBitmap(code, body, c);
    case Opcode::kUtf8CharSet:
    case Opcode::kUtf8CharSetNot:
      return isExact ? !CanBegin(code, body, next + 2, foldCase)
                     : (OpcodeAt(code, body) == Opcode::kUtf8CharSetNot) == IsInBitmap(code, body, c);
    default:
      return false;
  }
}

}  // namespace tarrow
