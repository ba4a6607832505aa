// Byte code decoded for running: what the matcher executes.
//
// Decoding changes the form, not the meaning. Jumps become indexes, sets become tables with folding worked
// in, and a loop over a single character, the bulk of all loops, becomes one instruction that takes its whole
// run at once. What the byte code rewrites of itself is rewritten in both.
#pragma once

#include "base/byte_class.h"
#include "search/pattern/byte_code.h"
#include "search/pattern/character_set.h"

#include <cstdint>
#include <vector>

namespace tarrow {

enum class Step : std::uint8_t {
  kMatch,          // the end of the code
  kByte,           // one byte equal to `operand`
  kLiteral,        // `operand` bytes of the code at `code`
  kFoldedLiteral,  // the same, folded
  kClass,          // one byte of class `index`
  kLineStart,
  kLineEnd,
  kWordStart,
  kWordEnd,
  kGroupStart,   // register `operand`
  kGroupEnd,     // register `operand`
  kBackRef,      // register `operand`
  kPush,         // a failure point at `index`, then on
  kPushDormant,  // a dormant failure point, then to `index`
  kLoopEnd,      // back to `index`, forgetting a failure point or not, as `mode` says
  kStar,         // any number of bytes of class `index`
  kPlus,         // at least one

  // Of UTF-8 texts.
  kCharacter,          // one character of set `index`
  kCharacterStar,      // any number of them
  kCharacterPlus,      // at least one
  kUtf8FoldedLiteral,  // the characters of `operand` bytes of the code at `code`, folded
  kUtf8FoldedBackRef,  // register `operand`
  kUtf8WordStart,
  kUtf8WordEnd,
};

// What the byte code has made of the MaybeFinalizeJump of a loop.
enum class LoopMode : std::uint8_t { kUndecided, kPossessive, kBacktracking };

struct Instruction {
  Step step = Step::kMatch;
  std::uint8_t operand = 0;
  LoopMode mode = LoopMode::kUndecided;
  std::int32_t index = 0;
  std::int32_t code = 0;  // a literal's bytes, or a loop's closing jump, as an offset into the code
};

struct MatchProgram {
  std::vector<Instruction> steps;  // ends with kMatch
  std::vector<ByteClass> classes;
  std::vector<CharacterSet> sets;
  bool isForUtf8 = false;
  const ByteAlphabet* alphabet = nullptr;  // of the pattern
  const FoldTable* fold = nullptr;
  int registerCount = 1;  // the highest register in use, plus one
  int stretchWeight = 1;  // of a way through the code without going round or back, in ticks
};

// Decodes the code of `pattern`. It comes from CompilePattern; matching may have rewritten some of it
// already.
MatchProgram DecodeProgram(const CompiledPattern& pattern);

}  // namespace tarrow
