// The platform's knowledge of letters, as tables over the characters of 16 bits.
#pragma once

#include <array>

namespace tarrow {

struct LetterTables {
  std::array<bool, 0x10000> isWord{};  // letters and digits
  std::array<char16_t, 0x10000> upper{};
  std::array<char16_t, 0x10000> lower{};
};

// Fills the tables; one file a platform.
void FillLetterTables(LetterTables& tables);

}  // namespace tarrow
