// Which bytes a match may begin with: lets a search pass over whole stretches of text.
#pragma once

#include "search/pattern/compiled_pattern.h"

namespace tarrow {

// Fills `pattern.firstCharMap` and `canBeEmpty` from its code and sets `mapValid`. The map is what the search
// goes by, also in the rare case where the walk ends before it has seen every way to begin.
void ComputeFirstCharMap(CompiledPattern& pattern);

}  // namespace tarrow
