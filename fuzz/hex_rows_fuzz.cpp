// Any bytes at any offset make a row from which they can be read back.
#include "viewer/records/hex_rows.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  std::uint32_t offset = data[0] | data[1] << 8 | data[2] << 16 | static_cast<std::uint32_t>(data[3]) << 24;
  std::string_view bytes(reinterpret_cast<const char*>(data) + 4, size - 4);
  std::array<char, tarrow::kHexRowWidth> row;
  std::size_t length = tarrow::FormatHexRow(offset, bytes, row);
  bytes = bytes.substr(0, tarrow::kHexRowBytes);
  if (length != tarrow::kHexTextColumn + bytes.size()) std::abort();
  if (row[8] != ':' || std::strtoul(std::string(row.data(), 8).c_str(), nullptr, 16) != offset) std::abort();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::string digits(row.data() + tarrow::HexColumn(i), 2);
    auto byte = static_cast<unsigned char>(bytes[i]);
    if (std::strtoul(digits.c_str(), nullptr, 16) != byte) std::abort();
    char shown = row[tarrow::kHexTextColumn + i];
    if (shown != ((byte & 0x7F) >= 0x20 ? bytes[i] : '.')) std::abort();
  }
  return 0;
}
