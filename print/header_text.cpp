#include "print/header_text.h"

#include <optional>
#include <utility>

namespace tarrow {
namespace {

std::optional<HeaderPlace> PlaceOf(char code) {
  switch (code) {
    case 'l':
      return HeaderPlace::kLeft;
    case 'c':
      return HeaderPlace::kCentre;
    case 'r':
      return HeaderPlace::kRight;
    default:
      return {};
  }
}

std::string TextOf(char code, const HeaderFields& fields, int page) {
  switch (code) {
    case 'f':
      return fields.name;
    case 'F':
      return fields.fullName;
    case 'd':
      return fields.shortDate;
    case 'D':
      return fields.longDate;
    case 't':
      return fields.time;
    case 'p':
      return std::to_string(page);
    default:
      return {'&', code};
  }
}

}  // namespace

std::vector<HeaderPiece> ExpandHeader(std::string_view pattern, const HeaderFields& fields, int page) {
  std::vector<HeaderPiece> pieces;
  HeaderPiece pending;
  auto finish = [&] {
    if (!pending.text.empty()) pieces.push_back(std::exchange(pending, {}));
  };
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '&' || at + 1 == pattern.size()) {
      pending.text += pattern[at];
      continue;
    }
    char code = pattern[++at];
    if (auto place = PlaceOf(code)) {
      finish();
      pending.place = *place;
    } else {
      pending.text += TextOf(code, fields, page);
    }
  }
  finish();
  return pieces;
}

}  // namespace tarrow
