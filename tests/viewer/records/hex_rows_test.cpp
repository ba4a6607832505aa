#include "viewer/records/hex_rows.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace tarrow {
namespace {

std::string Row(std::uint32_t offset, std::string_view bytes) {
  std::array<char, kHexRowWidth> row;
  row.fill('#');
  return {row.data(), FormatHexRow(offset, bytes, row)};
}

std::string NaiveRow(std::uint32_t offset, std::string_view bytes) {
  char number[16];
  std::snprintf(number, sizeof number, "%8lX:", static_cast<unsigned long>(offset));
  std::string row = number;
  row.resize(47, ' ');
  for (std::size_t j = 0; j < bytes.size(); ++j) {
    auto byte = static_cast<unsigned char>(bytes[j]);
    std::snprintf(number, sizeof number, "%02X", byte);
    row.replace(10 + 9 * (j / 4) + 2 * (j % 4), 2, number);
    row += (byte & 0x7F) >= 0x20 ? bytes[j] : '.';
  }
  return row;
}

TEST(HexRows, LooksAsItDoes) {
  EXPECT_EQ(Row(0, "Hello, world!\r\n\xA0"),
            "       0: 48656C6C 6F2C2077 6F726C64 210D0AA0  Hello, world!..\xA0");
  EXPECT_EQ(Row(32, "!"), "      20: 21                                   !");
  EXPECT_EQ(Row(0xFFFFFFF0, std::string_view("\x7F\x80\x9F\x00", 4)),
            "FFFFFFF0: 7F809F00                             \x7F...");
  EXPECT_EQ(Row(16, ""), "      10:                                      ");
}

TEST(HexRows, AgreesWithTheNaiveRow) {
  std::mt19937 random(1);
  for (int i = 0; i < 20'000; ++i) {
    std::string bytes(random() % 17, 0);
    for (char& c : bytes) c = static_cast<char>(random());
    std::uint32_t offset = static_cast<std::uint32_t>(random()) >> random() % 32;
    ASSERT_EQ(Row(offset, bytes), NaiveRow(offset, bytes));
  }
}

}  // namespace
}  // namespace tarrow
