// The margins of a page: tenths of a millimetre, shown and typed in centimetres or inches.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// Tenths of a millimetre.
struct Margins {
  int left = 250;
  int top = 200;
  int right = 250;
  int bottom = 200;

  friend bool operator==(const Margins&, const Margins&) = default;
};

// "left,top,right,bottom" as the settings keep them. A number that is missing or cannot be read leaves its
// usual value.
[[nodiscard]] Margins ParseMargins(std::string_view value);
[[nodiscard]] std::string FormatMargins(const Margins& margins);

// How the user's region writes lengths.
struct LengthFormat {
  bool metric = false;  // centimetres, else inches
  std::string decimal = ".";

  // A length in tenths of a millimetre as text, with two decimals.
  [[nodiscard]] std::string Text(int length) const;

  // The length that a text names, or nothing when it names none: digits, the decimal separator and digits,
  // and nothing else.
  [[nodiscard]] std::optional<int> Read(std::string_view text) const;
};

}  // namespace tarrow
