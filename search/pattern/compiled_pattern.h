// A regular expression as compact byte code, with what the searcher knows about it.
//
// One operation is an opcode byte followed by its operands. Jump offsets are signed 16-bit numbers, low byte
// first, counted from the first byte after the 3-byte jump. Closures are greedy and built of jumps:
//
//   X*   OnFailureJump (to after)  X  MaybeFinalizeJump (to the OnFailureJump)
//   X+   DummyFailureJump (to X)  OnFailureJump (to after)  X  MaybeFinalizeJump (to the OnFailureJump)
//   X?   OnFailureJump (to after)  X
//
// The code works on bytes, which are all the same as characters in ASCII and in most code pages. For texts in
// UTF-8 a pattern can be compiled into code that knows characters: its operations have numbers of their own,
// and occur only where the same pattern made of bytes would take characters apart or not know their case.
//
// A compiled pattern belongs to one search context. Matching changes it: each MaybeFinalizeJump decides, when
// it is first executed, whether its loop may forget how to backtrack, and rewrites itself for good.
#pragma once

#include "base/units.h"
#include "search/pattern/char_tables.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tarrow {

enum class Opcode : std::uint8_t {
  kNone = 0,
  kExact = 1,              // count 1..127, then as many bytes
  kLineStart = 2,          // at offset 0 or after LF
  kLineEnd = 3,            // at the end of the text or before CR
  kJump = 4,               // offset
  kOnFailureJump = 5,      // offset: pushes a failure point and goes on
  kFinalizeJump = 6,       // offset: drops the newest failure point, then jumps
  kMaybeFinalizeJump = 7,  // offset: becomes kFinalizeJump or kJump when first executed
  kDummyFailureJump = 8,   // offset: pushes a dormant failure point, then jumps
  kAnyChar = 9,            // any byte but CR and LF
  kCharSet = 10,           // length 0..32, then as many bytes of bitmap
  kCharSetNot = 11,        // the same
  kGroupStart = 12,        // register 1..9
  kGroupEnd = 13,          // register 1..9
  kBackRef = 14,           // register 1..9
  kWordStart = 18,
  kWordEnd = 19,

  // What patterns for UTF-8 texts have in place of some of these, where bytes would not do.
  kUtf8AnyChar = 20,
  kUtf8CharSet = 21,        // as kCharSet, for ASCII; then a count of two bytes, low byte first, and as many
  kUtf8CharSetNot = 22,     // ranges of codes, each a first and a last one of three bytes, low byte first
  kUtf8FoldedExact = 23,    // count 1..127, then as many bytes, of whole folded characters
  kUtf8FoldedBackRef = 24,  // register 1..9
  kUtf8WordStart = 25,
  kUtf8WordEnd = 26,
};

// Why a pattern does not compile; the numbers are those that callers pass around.
enum class PatternError {
  kNone = 0,
  kOutOfMemory = 1,
  kInvalid = 2,         // ends inside [...], after a range's '-', or right after a backslash
  kTooComplex = 3,      // more than 16384 bytes of code, or more than ten groups open at once
  kUnmatchedOpen = 4,   // a \( is never closed
  kUnmatchedClose = 5,  // a \) has no open group
};

// Whether a pattern can match without consuming anything.
enum class CanBeEmpty : std::uint8_t { kNever = 0, kAnywhere = 1, kAtLineEnd = 2 };

struct PreparedSearch;

// Holds what matcher and search have worked out from the code of one pattern. A copy of the pattern starts
// without it.
class PreparedSearchOwner {
 public:
  PreparedSearchOwner();
  PreparedSearchOwner(const PreparedSearchOwner&);
  PreparedSearchOwner(PreparedSearchOwner&&) noexcept;
  PreparedSearchOwner& operator=(const PreparedSearchOwner&);
  PreparedSearchOwner& operator=(PreparedSearchOwner&&) noexcept;
  ~PreparedSearchOwner();

  std::unique_ptr<PreparedSearch> search;
};

struct CompiledPattern {
  // Chosen by the owner before compiling: letters match in either case.
  bool foldCase = false;

  // Also chosen before: whether the pattern is for texts in UTF-8 that go beyond ASCII. It is UTF-8 itself
  // then, and everything in it means whole characters. If not, characters are bytes, ASCII or, in the texts
  // of a code page, what the alphabet says.
  bool isForUtf8 = false;
  std::shared_ptr<const ByteAlphabet> alphabet;  // null: ASCII

  // Written by CompilePattern; `code` also by the matcher, as told above.
  std::vector<std::uint8_t> code;
  bool hasLineStart = false;
  bool hasLineEnd = false;

  // Written by ComputeFirstCharMap: may a match begin with this (folded) byte?
  std::array<bool, 256> firstCharMap{};
  bool mapValid = false;
  CanBeEmpty canBeEmpty = CanBeEmpty::kNever;

  // Made by the matcher when it first needs it, dropped by CompilePattern.
  PreparedSearchOwner prepared;

  const ByteAlphabet& Alphabet() const { return alphabet ? *alphabet : AsciiAlphabet(); }
  const FoldTable& Fold() const { return foldCase ? Alphabet().fold : kFoldNothing; }
};

// Where a match and its groups lie: register 0 is the whole match, 1 to 9 the groups in the order of their
// opening brackets. -1 and -1 mark a group that took no part.
//
// A group within a loop keeps what its last attempt wrote, also where that attempt failed later; its start
// may then lie behind its end. Range() tells such a register from one that holds text.
struct MatchRegisters {
  static constexpr int kCount = 10;

  std::array<std::int32_t, kCount> start;
  std::array<std::int32_t, kCount> end;

  MatchRegisters() {
    start.fill(-1);
    end.fill(-1);
  }

  // The text that register `r` holds (perhaps empty), or nothing.
  std::optional<TextRange> Range(int r) const {
    if (end[r] < 0 || start[r] > end[r]) return std::nullopt;
    return TextRange{BytePos(start[r]), BytePos(end[r])};
  }

  friend bool operator==(const MatchRegisters&, const MatchRegisters&) = default;
};

}  // namespace tarrow
