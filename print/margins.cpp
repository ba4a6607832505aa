#include "print/margins.h"

#include "base/text_format.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace tarrow {
namespace {

constexpr int kTenthsPerInch = 254;
constexpr int kTenthsPerCentimetre = 100;

// Digits behind the ninth add nothing that two decimals could show.
constexpr int kMostFractionDigits = 9;

// No number of this many hundredths is a margin; beyond it digits are not counted any more.
constexpr std::int64_t kFar = std::numeric_limits<std::int32_t>::max();

bool IsDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::int64_t WholeNumber(std::string_view digits) {
  std::int64_t number = 0;
  for (char digit : digits) number = std::min(kFar, number * 10 + (digit - '0'));
  return number;
}

// The digits behind the separator as hundredths, rounded.
std::int64_t Hundredths(std::string_view digits) {
  std::int64_t power = 1, fraction = 0;
  for (char digit : digits.substr(0, kMostFractionDigits)) {
    power *= 10;
    fraction = fraction * 10 + (digit - '0');
  }
  return (power / 2 + fraction * 100) / power;
}

}  // namespace

Margins ParseMargins(std::string_view value) {
  Margins margins;
  const char* at = value.data();
  const char* end = at + value.size();
  for (int* margin : {&margins.left, &margins.top, &margins.right, &margins.bottom}) {
    while (at != end && *at == ' ') ++at;
    auto [next, error] = std::from_chars(at, end, *margin);
    if (error != std::errc() || next == end || *next != ',') break;
    at = next + 1;
  }
  return margins;
}

std::string FormatMargins(const Margins& margins) {
  return FormatText("%d,%d,%d,%d", {margins.left, margins.top, margins.right, margins.bottom});
}

// Of inches the hundredths are rounded by themselves, and 0.996 shows as 1.00: the carry is part of the
// whole.
std::string LengthFormat::Text(int length) const {
  std::int64_t size = length < 0 ? -std::int64_t{length} : length;
  std::int64_t hundredths = metric ? size
                                   : size / kTenthsPerInch * 100 +
                                         (size % kTenthsPerInch * 100 + kTenthsPerInch / 2) / kTenthsPerInch;
  return (length < 0 ? "-" : "") + FormatText("%d%s%02d", {hundredths / 100, decimal, hundredths % 100});
}

std::optional<int> LengthFormat::Read(std::string_view text) const {
  std::size_t separator = decimal.empty() ? std::string_view::npos : text.find(decimal);
  std::string_view whole = text.substr(0, separator);
  std::string_view fraction =
      separator == std::string_view::npos ? std::string_view() : text.substr(separator + decimal.size());
  if (!IsDigits(whole) || !IsDigits(fraction) || (whole.empty() && fraction.empty())) return {};
  std::int64_t length = WholeNumber(whole) * 100 + Hundredths(fraction);
  if (!metric) length = length * kTenthsPerInch / kTenthsPerCentimetre;
  if (length > kFar) return {};
  return static_cast<int>(length);
}

}  // namespace tarrow
