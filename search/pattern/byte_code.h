// Reading byte code: what everything that walks over a compiled pattern shares.
//
// Positions are offsets into the code. Reading past its end yields zero bytes.
#pragma once

#include "search/pattern/compiled_pattern.h"

#include <cstddef>
#include <span>

namespace tarrow {

using ByteCode = std::span<const std::uint8_t>;

inline constexpr int kJumpSize = 3;
inline constexpr int kCodeRangeSize = 6;

inline int CodeByte(ByteCode code, int at) {
  return static_cast<std::size_t>(at) < code.size() ? code[static_cast<std::size_t>(at)] : 0;
}

inline Opcode OpcodeAt(ByteCode code, int at) {
  return static_cast<Opcode>(CodeByte(code, at));
}

// Where the jump at `at` leads.
inline int JumpTarget(ByteCode code, int at) {
  int offset = CodeByte(code, at + 1) | CodeByte(code, at + 2) << 8;
  return at + kJumpSize + static_cast<std::int16_t>(offset);
}

// Is the bit of `c` set in the bitmap of the set at `at`? (A CharSetNot matches where it is not.)
inline bool IsInBitmap(ByteCode code, int at, int c) {
  return c < 8 * CodeByte(code, at + 1) && (CodeByte(code, at + 2 + c / 8) >> (c % 8) & 1);
}

inline int Utf8SetSize(ByteCode code, int at) {
  int count = at + 2 + CodeByte(code, at + 1);
  return count + 2 + kCodeRangeSize * (CodeByte(code, count) | CodeByte(code, count + 1) << 8) - at;
}

// The length of the operation at `at` with its operands, in bytes.
inline int OperationSize(ByteCode code, int at) {
  switch (OpcodeAt(code, at)) {
    case Opcode::kExact:
    case Opcode::kCharSet:
    case Opcode::kCharSetNot:
    case Opcode::kUtf8FoldedExact:
      return 2 + CodeByte(code, at + 1);
    case Opcode::kUtf8CharSet:
    case Opcode::kUtf8CharSetNot:
      return Utf8SetSize(code, at);
    case Opcode::kJump:
    case Opcode::kOnFailureJump:
    case Opcode::kFinalizeJump:
    case Opcode::kMaybeFinalizeJump:
    case Opcode::kDummyFailureJump:
      return kJumpSize;
    case Opcode::kGroupStart:
    case Opcode::kGroupEnd:
    case Opcode::kBackRef:
    case Opcode::kUtf8FoldedBackRef:
      return 2;
    default:
      return 1;
  }
}

// Whether the loop that the MaybeFinalizeJump at `at` closes may forget its failure point on every round,
// because what follows it can never begin with what it repeats.
//
// The look ahead steps over group marks one byte at a time, not one operation with its register: after a
// group mark of register 1 it reads the 1 as an Exact, after one of register 3 the 3 as a LineEnd. That is
// meant: it makes the loop of "\(a*\)a" keep all it took, and patterns are written with that in mind.
bool MayFinalizeLoop(ByteCode code, int at, bool foldCase);

}  // namespace tarrow
