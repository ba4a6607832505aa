#include "edit/lexers/lexer.h"

namespace tarrow {
namespace {

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

// Cut where a character begins; what has four continuations in a row is no UTF-8.
LexState Lexer::LexLongLine(std::string_view line, LexState state, StyleRuns* runs) const {
  std::size_t lexed = kLexedOfLine;
  while (lexed + 3 > kLexedOfLine && IsContinuation(line[lexed])) --lexed;
  state = Scan(line.substr(0, lexed), state, runs);
  if (runs) runs->Add(line.size(), Style::kText);
  return state;
}

}  // namespace tarrow
