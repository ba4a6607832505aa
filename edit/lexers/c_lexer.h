// The lexer of C and C++, which resource scripts share: comments, strings, numbers, directives, words.
//
// The state of a line is what the line before it left open. A backslash at the end of a line continues
// comments to the end of the line, strings and directives. A raw string says itself how it will end, in up to
// 16 characters; the state keeps seven bits of them, a sum, so that a line in a raw string can be read
// without a look at where it began. Another delimiter with the same sum would end the string too early, which
// takes a raw string that quotes raw strings, and then one chance in 127; a table of delimiters beside the
// text would have to be kept in step with every change of it.
#pragma once

#include "edit/lexers/lexer.h"
#include "edit/lexers/word_table.h"

namespace tarrow {

// What sets the languages apart that are read like C.
struct CDialect {
  const WordTable& words;
  bool hasCharacters;  // an apostrophe begins a character
  bool hasRawStrings;
};

class CLexer final : public Lexer {
 public:
  explicit CLexer(const CDialect& dialect) : dialect_(dialect) {}

 private:
  LexState Scan(std::string_view line, LexState state, StyleRuns* runs) const override;

  CDialect dialect_;
};

[[nodiscard]] const Lexer& CSourceLexer();
[[nodiscard]] const Lexer& ResourceLexer();

}  // namespace tarrow
