// The places that the lists of the program's own tools name: "name(12): text" of a search, "name(0x01a4):
// text" of an extraction.
//
// A tool writes the name as it is, so that it may hold blanks and brackets; the number stands between the
// first bracket that is followed by nothing but a number and "): ". No name on a disk holds a colon there.
#pragma once

#include "edit/documents/source_place.h"

namespace tarrow {

// The place that a line of such a list names, or nothing.
[[nodiscard]] std::optional<SourcePlace> ParseListedPlace(std::string_view line);

// The same as the finder of a result window.
[[nodiscard]] PlaceFinder ListedPlaces();

}  // namespace tarrow
