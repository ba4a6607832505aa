// The lexers that there are, and which one a file is for.
#pragma once

#include "edit/lexers/c_lexer.h"
#include "edit/lexers/lexer.h"

#include <string_view>

namespace tarrow {

[[nodiscard]] const Lexer& MakefileSourceLexer();
[[nodiscard]] const Lexer& ModuleDefinitionLexer();
[[nodiscard]] const Lexer& IniLexer();
[[nodiscard]] const Lexer& BatchLexer();
[[nodiscard]] const Lexer& MarkdownLexer();

// The program's own results: lines that name a place, differences, the output of a project's command.
[[nodiscard]] const Lexer& SearchResultLexer();
[[nodiscard]] const Lexer& ComparisonLexer();
[[nodiscard]] const Lexer& BuildLogLexer();

// The lexer for a file of this name, with or without directories, in any case; null when none is for it.
[[nodiscard]] const Lexer* LexerFor(std::string_view path);

}  // namespace tarrow
