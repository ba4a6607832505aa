// Replace All as one sweep: every match of a pattern, with its replacement, as a list for one unit of undo.
//
// The list is what replacing one match after another in the text itself would come to, each search going on
// behind the text inserted last. Anchors see that text: the character before the place where a search goes on
// is the last one inserted.
#pragma once

#include "base/progress.h"
#include "edit/text/edit_list.h"
#include "search/find/replacement.h"

namespace tarrow {

struct ReplaceAllResult {
  EditList edits;
  bool outOfMemory = false;  // the list ends where memory did
};

// Matches lie within `region` of `text`, and inserted text is never searched. Throws what `progress` throws.
ReplaceAllResult ReplaceAll(CompiledPattern& pattern, std::string_view text, TextRange region,
                            const Replacement& replacement, Progress* progress = nullptr);

}  // namespace tarrow
