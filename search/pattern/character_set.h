// Which characters of a UTF-8 text an operation on a single one matches.
//
// ASCII characters are looked up in a table; the others are found among ranges of codes. With folding a
// character is in the set when one that differs from it only in case is.
#pragma once

#include "search/pattern/byte_code.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tarrow {

struct CodeRange {
  char32_t low = 0;
  char32_t high = 0;
};

// Sorts `ranges` and joins those that touch.
void JoinRanges(std::vector<CodeRange>& ranges);

class CharacterSet {
 public:
  // The set of the operation at `at`, a UTF-8 one, or one on bytes which are all ASCII.
  CharacterSet(ByteCode code, int at, bool foldCase);

  bool HasAscii(char c) const { return ascii_[static_cast<std::uint8_t>(c)]; }
  // Is a character beyond ASCII in the set?
  bool HasBeyond(char32_t code) const;
  // Are all of them?
  bool HasAllBeyond() const { return isNegated_ && ranges_.empty(); }

  // The bytes with which the text of a member may begin; those it may consist of.
  std::array<bool, 256> FirstBytes() const;
  std::array<bool, 256> AllBytes() const;

 private:
  void ReadRanges(ByteCode code, int at);
  void Fold();
  void AddFolded(CodeRange range, std::vector<CodeRange>& folded) const;

  std::array<bool, 128> ascii_{};
  bool isNegated_ = false;
  bool foldCase_;
  std::vector<CodeRange> ranges_;  // with folding, of folded characters
};

// What a character beyond ASCII becomes for comparing in either case. None becomes an ASCII one, so that
// patterns in ASCII mean the same in every text.
char32_t FoldBeyondAscii(char32_t code);

// The same for any character.
inline char32_t FoldCharacter(char32_t code) {
  return code < 0x80 ? kFoldToUpper[code] : FoldBeyondAscii(code);
}

}  // namespace tarrow
