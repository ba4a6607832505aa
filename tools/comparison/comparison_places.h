// The places that the lines of a comparison's result name, so that one can jump from them to the files.
//
// A header such as "12,14c12" names the first line of its block: in the old file, or in the new one where
// only that has lines ("a"). A line of a block ("< ...", "> ...") names itself, and the "---" between the two
// the line that follows it.
#pragma once

#include "edit/documents/source_place.h"

#include <string>

namespace tarrow {

// The finder for the comparison of these two files.
[[nodiscard]] PlaceFinder ComparisonPlaces(std::string first, std::string second);

}  // namespace tarrow
