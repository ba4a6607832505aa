// The formats in which every line stands by itself: module definition and initialisation files.
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_cursor.h"
#include "edit/lexers/word_table.h"

namespace tarrow {
namespace {

constexpr std::string_view kStatements[] = {
    "base",      "code",       "constant",     "data",        "description", "discardable",
    "dynamic",   "execute",    "executeonly",  "executeread", "exetype",     "exports",
    "fixed",     "heapsize",   "impure",       "imports",     "initglobal",  "initinstance",
    "iopl",      "library",    "loadonacall",  "loadoncall",  "moveable",    "movable",
    "multiple",  "name",       "nodata",       "noiopl",      "noname",      "nondiscardable",
    "none",      "nonshared",  "preload",      "private",     "protmode",    "pure",
    "read",      "readonly",   "readwrite",    "realmode",    "resident",    "residentname",
    "sections",  "segments",   "shared",       "single",      "stacksize",   "stub",
    "swappable", "termglobal", "terminstance", "version",     "virtual",     "windows",
    "write",
};
constexpr WordTable kStatementWords(WordTable::Case::kIgnored, {{kStatements, Style::kKeyword}});

class DefinitionLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState, StyleRuns* runs) const override {
    if (!runs) return kTextStart;
    for (LineCursor line(text, runs); !line.AtEnd();) LexToken(line);
    return kTextStart;
  }

  static void LexToken(LineCursor& line) {
    char next = line.Peek();
    if (next == ';') return line.EndLine(Style::kComment);
    if (next == '"' || next == '\'') {
      line.SkipQuoted();
      line.End(Style::kString);
    } else if (IsDigitByte(next) || (next == '@' && IsDigitByte(line.Peek(1)))) {
      line.Skip();
      line.SkipWord();
      line.End(Style::kNumber);
    } else if (IsWordByte(next)) {
      line.End(kStatementWords.StyleOf(line.SkipWord()));
    } else {
      line.Skip();
      line.End(Style::kText);
    }
  }
};

class InitialisationLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState, StyleRuns* runs) const override {
    if (!runs) return kTextStart;
    LineCursor line(text, runs);
    line.SkipBlanks();
    char first = line.Peek();
    if (first == ';' || first == '#') {
      line.EndLine(Style::kComment);
    } else if (first == '[') {
      line.SkipWhile([](char c) { return c != ']'; });
      line.Skip();
      line.End(Style::kSection);
      line.EndLine(Style::kText);
    } else {
      line.SkipWhile([](char c) { return c != '='; });
      line.End(line.AtEnd() ? Style::kText : Style::kKey);
      LexValue(line);
    }
    return kTextStart;
  }

  // Behind the key: a string in quotes, a number that is all of the value, or plain text.
  static void LexValue(LineCursor& line) {
    line.Skip();
    line.SkipBlanks();
    line.End(Style::kText);
    if (line.Peek() == '"') {
      line.SkipQuoted();
      line.End(Style::kString);
    } else {
      bool isSigned = line.Peek() == '-' || line.Peek() == '+';
      bool isNumber = IsDigitByte(line.Peek(isSigned ? 1 : 0));
      line.Skip(isSigned ? 1 : 0);
      line.SkipWord();
      line.SkipBlanks();
      line.End(isNumber && line.AtEnd() ? Style::kNumber : Style::kText);
    }
    line.EndLine(Style::kText);
  }
};

}  // namespace

const Lexer& ModuleDefinitionLexer() {
  static const DefinitionLexer lexer;
  return lexer;
}

const Lexer& IniLexer() {
  static const InitialisationLexer lexer;
  return lexer;
}

}  // namespace tarrow
