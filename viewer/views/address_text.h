// Addresses as a user types and reads them: in hexadecimal, without a prefix.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

inline constexpr std::size_t kAddressDigits = 8;

struct AddressText {
  std::uint32_t address = 0;
  std::size_t wrongAt = std::string_view::npos;  // the first character that is no digit

  bool IsRight() const { return wrongAt == std::string_view::npos; }
};

// Reads up to kAddressDigits digits of either case; no digit at all means 0.
AddressText ParseAddress(std::string_view text);

std::string FormatAddress(std::uint32_t address);

}  // namespace tarrow
