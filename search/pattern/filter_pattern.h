// A regular expression in the form in which strings are extracted by it.
#pragma once

#include "base/anchored_pattern.h"

namespace tarrow {

// As AnchoredPatternMaker has it. Letters match in their own case only.
[[nodiscard]] std::unique_ptr<AnchoredPattern> MakeFilterPattern(std::string_view text, int& message);

}  // namespace tarrow
