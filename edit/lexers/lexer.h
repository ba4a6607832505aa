// A lexer tells what the parts of a line are, from the bytes of the line and the state at its start.
//
// The state is one byte, so that one can be kept for every line of a text. It is all that a lexer knows of
// the lines before: a lexer has no memory of its own, and the same line in the same state always gives the
// same runs. A lexer looks at each byte a bounded number of times, and never at more than kLexedOfLine of a
// line: what lies behind that is plain text, so that a text that is one line costs no more than a page.
//
// Runs begin and end between characters: of the bytes from 0x80 on no lexer tells one from another.
#pragma once

#include "edit/lexers/style.h"

#include <cstdint>
#include <string_view>

namespace tarrow {

using LexState = std::uint8_t;

// The state at the start of a text.
inline constexpr LexState kTextStart = 0;

// Bytes of a line that are looked at.
inline constexpr std::size_t kLexedOfLine = 16384;

// How long the mark is that a text in UTF-8 may begin with; no lexer sees anything in it.
constexpr std::size_t ByteOrderMarkSize(std::string_view line) {
  return line.starts_with("\xEF\xBB\xBF") ? 3 : 0;
}

class Lexer {
 public:
  virtual ~Lexer() = default;

  // Takes a line apart, given without its terminator and with the state at its start. Returns the state at
  // the start of the next line. `runs`, where they are wanted, then cover the line.
  LexState Lex(std::string_view line, LexState state, StyleRuns* runs) const {
    if (runs) runs->Clear();
    if (line.size() > kLexedOfLine) return LexLongLine(line, state, runs);
    state = Scan(line, state, runs);
    if (runs) runs->Add(line.size(), Style::kText);
    return state;
  }

 private:
  // Lex() for a line of bounded length; `runs` are empty. What they do not cover in the end is plain text.
  virtual LexState Scan(std::string_view line, LexState state, StyleRuns* runs) const = 0;

  LexState LexLongLine(std::string_view line, LexState state, StyleRuns* runs) const;
};

}  // namespace tarrow
