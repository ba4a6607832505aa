// Headers and footers: what stands behind the codes of their patterns, and where on the line it goes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

enum class HeaderPlace { kLeft, kCentre, kRight };

// A text to be drawn at the left edge of the line, around its middle, or up to its right edge.
struct HeaderPiece {
  HeaderPlace place = HeaderPlace::kCentre;
  std::string text;

  friend bool operator==(const HeaderPiece&, const HeaderPiece&) = default;
};

// What the codes stand for; captured when printing starts, so that all pages say the same.
struct HeaderFields {
  std::string name;       // &f
  std::string fullName;   // &F
  std::string shortDate;  // &d
  std::string longDate;   // &D
  std::string time;       // &t
};

// The pieces of a pattern on page `page`. A text begins in the middle; &l, &c and &r go on at another place;
// &p is the page. "&" before anything else is kept, and so is what stands behind it.
[[nodiscard]] std::vector<HeaderPiece> ExpandHeader(std::string_view pattern, const HeaderFields& fields,
                                                    int page);

}  // namespace tarrow
