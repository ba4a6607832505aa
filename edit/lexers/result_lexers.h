// The lexer of results that are lists of places: "name(number): text", or "name: count".
#pragma once

#include "edit/lexers/line_cursor.h"

namespace tarrow {

class ListedPlacesLexer : public Lexer {
 private:
  LexState Scan(std::string_view text, LexState state, StyleRuns* runs) const final;

  // Takes the text apart that stands behind the place, and where it does not end a run it is plain.
  virtual void LexFound(LineCursor&) const {}
};

}  // namespace tarrow
