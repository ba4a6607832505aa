#include "viewer/views/address_text.h"

#include "base/text_format.h"

namespace tarrow {
namespace {

int DigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

}  // namespace

AddressText ParseAddress(std::string_view text) {
  AddressText parsed;
  for (std::size_t i = 0; i < text.size(); ++i) {
    int digit = DigitValue(text[i]);
    if (digit < 0 || i >= kAddressDigits) return {0, i};
    parsed.address = parsed.address << 4 | static_cast<std::uint32_t>(digit);
  }
  return parsed;
}

std::string FormatAddress(std::uint32_t address) {
  return FormatText("%lX", {address});
}

}  // namespace tarrow
