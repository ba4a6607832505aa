// Writes the code of a set of characters while its members are read from a pattern for UTF-8 texts.
#pragma once

#include "search/pattern/character_set.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarrow {

class CharacterSetCode {
 public:
  // `fold` is what the pattern's ASCII is folded by.
  explicit CharacterSetCode(const FoldTable& fold) : fold_(fold) {}

  // Adds low..high; nothing when high lies below low. ASCII at both ends is folded before the range is made,
  // as in a set of bytes.
  void Add(char32_t low, char32_t high);

  // How many bytes Write() may append.
  std::size_t MostRoom() const { return 2 + bitmap_.size() + 2 + kCodeRangeSize * ranges_.size(); }

  // Appends the operation: one on bytes if that means the same.
  void Write(bool isNegated, std::vector<std::uint8_t>& code);

 private:
  void AddAscii(int c) { bitmap_[c / 8] |= static_cast<std::uint8_t>(1 << (c % 8)); }

  const FoldTable& fold_;
  std::array<std::uint8_t, 16> bitmap_{};
  std::vector<CodeRange> ranges_;
};

}  // namespace tarrow
