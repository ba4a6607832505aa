// Goes through the bytes of a buffer and tries a pattern at each as if the buffer began there: the scan by
// which strings are extracted from binary files.
//
// "^" therefore holds everywhere and no byte has one before it. A match that consumes nothing, and one that
// runs out of room, count as none.
#pragma once

#include "base/progress.h"
#include "search/pattern/compiled_pattern.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace tarrow {

struct AnchoredMatch {
  std::size_t at = 0;
  std::size_t length = 0;  // at least 1
};

// The first match in `buffer` that begins in [from, end), or nothing. It may reach to the end of the buffer.
// `end` is not above the buffer's size, which is below 2 GB. Polls `progress`, if there is one, and lets its
// CYieldException through.
[[nodiscard]] std::optional<AnchoredMatch> FindAnchoredMatch(CompiledPattern& pattern,
                                                             std::string_view buffer, std::size_t from,
                                                             std::size_t end, Progress* progress = nullptr);

}  // namespace tarrow
