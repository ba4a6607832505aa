// The lexer of the results of a global search: the places, and in the lines what was found.
//
// The pattern is searched for again, in the lines that are shown. A pattern that takes long over one of them
// is not searched for any more: drawing does not wait.
#pragma once

#include "edit/lexers/result_lexers.h"
#include "search/files/line_pattern.h"

#include <string_view>

namespace tarrow {

class MatchLexer final : public ListedPlacesLexer {
 public:
  // A text that is no pattern is found nowhere.
  MatchLexer(std::string_view text, FindOptions options);

 private:
  void LexFound(LineCursor& line) const override;

  mutable LinePattern pattern_;  // which keeps its place between searches
  mutable bool isOff_;
};

}  // namespace tarrow
