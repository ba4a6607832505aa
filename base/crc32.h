// The checksum that tells a record that was written whole from one that was not (CRC-32, polynomial
// 0xEDB88320).
#pragma once

#include <cstdint>
#include <string_view>

namespace tarrow {

// The checksum of `bytes`, or, with the checksum of what stands before them, that of both together.
[[nodiscard]] std::uint32_t Crc32(std::string_view bytes, std::uint32_t before = 0);

}  // namespace tarrow
