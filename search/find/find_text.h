// The interactive search: from the selection in the direction of the find state, and once more from the other
// end of the text if the user wants it.
#pragma once

#include "base/progress.h"
#include "search/find/find_state.h"

namespace tarrow {

// Whom a search asks and tells; the numbers are those of the string table, formatted with the pattern.
class FindDialogue {
 public:
  // Whether to go on from the other end of the text.
  virtual bool ConfirmRestart(int message) = 0;
  virtual void Complain(int message) = 0;

 protected:
  ~FindDialogue() = default;
};

// Returns where the next match lies, with its registers in `state`, or nothing when there is none, the
// pattern does not compile, or the user has had enough; the user has been told. Throws what `progress`
// throws, and std::bad_alloc.
std::optional<TextRange> FindText(FindState& state, TextView text, TextRange selection, Charset charset,
                                  FindDialogue& user, Progress* progress = nullptr);

// The same forwards within `range`, in which the whole match lies, without a second attempt. `isFirst` tells
// that the range is fresh: a match may lie at its very start.
std::optional<TextRange> FindTextWithin(FindState& state, TextView text, TextRange range, bool isFirst,
                                        Charset charset, FindDialogue& user, Progress* progress = nullptr);

}  // namespace tarrow
