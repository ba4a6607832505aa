// The rows of a hex dump: the offset, sixteen bytes in hex in four groups, the same bytes as characters.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarrow {

inline constexpr std::size_t kHexRowBytes = 16;
// Columns, from 0. A byte's hex digits begin at HexColumn, its character stands at kHexTextColumn + its
// number.
inline constexpr std::size_t kHexTextColumn = 47;
inline constexpr std::size_t kHexRowWidth = 64;

constexpr std::size_t HexColumn(std::size_t byte) {
  return 10 + 9 * (byte / 4) + 2 * (byte % 4);
}

// Writes the row of `bytes`, at most sixteen of them, which stand at `offset` in their file. Returns its
// length; a row ends behind its last character.
std::size_t FormatHexRow(std::uint32_t offset, std::string_view bytes, std::array<char, kHexRowWidth>& row);

}  // namespace tarrow
