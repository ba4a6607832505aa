// Texts with the styles of their parts, written so that a test can be read.
#pragma once

#include "edit/lexers/lexer.h"

#include <string>
#include <string_view>

namespace tarrow {

// A letter for each style, in the order of the styles: text, comment, string, number, keyword, directive,
// predefined, section, key, variable, code, emphasis, strong, link, place, match, header, old, new, error,
// warning.
inline constexpr std::string_view kStyleLetters = ".csnkdPSKVCeBLpmhoNEW";
static_assert(kStyleLetters.size() == kStyleCount);

// One letter for each byte; line ends stand for themselves.
inline std::string StylesOf(const Lexer& lexer, std::string_view text, LexState state = kTextStart) {
  std::string styles;
  StyleRuns runs;
  for (;;) {
    std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    state = lexer.Lex(line, state, &runs);
    std::size_t from = 0;
    for (const StyleRun& run : runs) {
      auto to = static_cast<std::size_t>(run.end);
      styles.append(to - from, kStyleLetters[static_cast<std::size_t>(run.style)]);
      from = to;
    }
    if (end == text.npos) return styles;
    styles += '\n';
    text.remove_prefix(end + 1);
  }
}

}  // namespace tarrow
