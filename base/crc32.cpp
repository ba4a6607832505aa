#include "base/crc32.h"

#include <array>
#include <cstddef>

namespace tarrow {
namespace {

// Eight bytes a step: table k tells what a byte does to the sum that k further bytes have passed through.
constexpr std::size_t kStep = 8;
using Tables = std::array<std::array<std::uint32_t, 256>, kStep>;

constexpr Tables MakeTables() {
  Tables tables{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t sum = byte;
    for (int bit = 0; bit < 8; ++bit) sum = sum & 1 ? sum >> 1 ^ 0xEDB88320u : sum >> 1;
    tables[0][byte] = sum;
  }
  for (std::size_t k = 1; k < kStep; ++k)
    for (std::size_t byte = 0; byte < 256; ++byte) {
      std::uint32_t sum = tables[k - 1][byte];
      tables[k][byte] = sum >> 8 ^ tables[0][sum & 0xFF];
    }
  return tables;
}

constexpr Tables kTables = MakeTables();

constexpr std::uint32_t Byte(char c) {
  return static_cast<unsigned char>(c);
}

}  // namespace

std::uint32_t Crc32(std::string_view bytes, std::uint32_t before) {
  std::uint32_t sum = ~before;
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  for (; left >= kStep; at += kStep, left -= kStep) {
    std::uint32_t low = sum ^ (Byte(at[0]) | Byte(at[1]) << 8 | Byte(at[2]) << 16 | Byte(at[3]) << 24);
    sum = kTables[7][low & 0xFF] ^ kTables[6][low >> 8 & 0xFF] ^ kTables[5][low >> 16 & 0xFF] ^
          kTables[4][low >> 24] ^ kTables[3][Byte(at[4])] ^ kTables[2][Byte(at[5])] ^
          kTables[1][Byte(at[6])] ^ kTables[0][Byte(at[7])];
  }
  for (; left > 0; ++at, --left) sum = sum >> 8 ^ kTables[0][(sum ^ Byte(*at)) & 0xFF];
  return ~sum;
}

}  // namespace tarrow
