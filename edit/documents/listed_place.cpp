#include "edit/documents/listed_place.h"

#include <charconv>

namespace tarrow {
namespace {

// Reads "12): " or "0x01a4): " at the front of `text` into `place`; false when something else stands there.
bool ReadPosition(std::string_view text, SourcePlace& place) {
  place.isAddress = text.starts_with("0x");
  if (place.isAddress) text.remove_prefix(2);
  const char* end = text.data() + text.size();
  auto [behind, error] = std::from_chars(text.data(), end, place.position, place.isAddress ? 16 : 10);
  bool isNumber = error == std::errc() && std::string_view(behind, end).starts_with("): ");
  return isNumber && (place.isAddress || place.position > 0);
}

}  // namespace

std::optional<SourcePlace> ParseListedPlace(std::string_view line) {
  for (std::size_t open = line.find('('); open != std::string_view::npos; open = line.find('(', open + 1)) {
    SourcePlace place;
    if (open == 0 || !ReadPosition(line.substr(open + 1), place)) continue;
    place.name = line.substr(0, open);
    return place;
  }
  return {};
}

PlaceFinder ListedPlaces() {
  return [](const LineReader& lines, std::int64_t line) { return ParseListedPlace(lines(line)); };
}

}  // namespace tarrow
