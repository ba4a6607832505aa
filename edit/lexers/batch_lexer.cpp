// Batch files: comments, labels, commands, variables, strings.
#include "base/path_text.h"
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_cursor.h"
#include "edit/lexers/word_table.h"

namespace tarrow {
namespace {

// Whether the line continues one that ends in a caret, and what that was: a command, or text for the screen.
enum State : LexState { kFresh, kCommand, kPlainText };

constexpr std::string_view kCommands[] = {
    "assoc",  "attrib", "break",         "call",     "cd",       "chcp",   "chdir",   "choice",
    "cls",    "cmd",    "cmdextversion", "color",    "copy",     "date",   "defined", "del",
    "dir",    "do",     "echo",          "else",     "endlocal", "equ",    "erase",   "errorlevel",
    "exist",  "exit",   "for",           "ftype",    "geq",      "goto",   "gtr",     "if",
    "in",     "leq",    "lss",           "md",       "mkdir",    "mklink", "move",    "neq",
    "not",    "path",   "pause",         "popd",     "prompt",   "pushd",  "rd",      "ren",
    "rename", "rmdir",  "set",           "setlocal", "setx",     "shift",  "start",   "time",
    "title",  "type",   "ver",           "verify",   "vol",      "xcopy",
};
constexpr WordTable kWords(WordTable::Case::kIgnored, {{kCommands, Style::kKeyword}});

bool WritesText(std::string_view word) {
  return EqualIgnoringCase(word, "echo") || EqualIgnoringCase(word, "title") ||
         EqualIgnoringCase(word, "prompt");
}

// %NAME%, %1, %*, %~dp0, %%i, !NAME!. Passes nothing where none begins.
bool SkipVariable(LineCursor& line) {
  char sign = line.Peek(), next = line.Peek(1);
  std::size_t close = line.Line().find(sign, line.At() + 1);
  if (sign == '%' && (next == '%' || next == '~')) {
    line.Skip(2);
    if (next == '%' && line.Peek() == '~') line.Skip();
    line.SkipWord();
  } else if (sign == '%' && (IsDigitByte(next) || next == '*')) {
    line.Skip(2);
  } else if (close != std::string_view::npos && (IsWordByte(next) || next == '(')) {
    line.SkipTo(close + 1);
  } else {
    return false;
  }
  return true;
}

class BatchFileLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState state, StyleRuns* runs) const override {
    LineCursor line(text, runs);
    line.SkipWhile([](char c) { return IsBlankByte(c) || c == '@' || c == '('; });
    std::size_t start = line.At();
    if (state == kFresh && IsComment(line)) {
      line.EndLine(Style::kComment);
      return kFresh;
    }
    line.End(Style::kText);
    if (state == kFresh && line.Peek() == ':') {
      line.EndLine(Style::kSection);
      return kFresh;
    }
    line.SkipTo(start);
    bool isText = state == kPlainText;
    while (!line.AtEnd()) isText = LexToken(line, isText);
    if (!text.ends_with('^')) return kFresh;
    return isText ? kPlainText : kCommand;
  }

  static bool IsComment(LineCursor& line) {
    if (line.Rest().starts_with("::")) return true;
    std::string_view word = line.Rest().substr(0, 4);
    return EqualIgnoringCase(word.substr(0, 3), "rem") && (word.size() < 4 || !IsWordByte(word[3]));
  }

  // Returns whether what follows is text for the screen.
  static bool LexToken(LineCursor& line, bool isText) {
    char next = line.Peek();
    if ((next == '%' || next == '!') && SkipVariable(line)) {
      line.End(Style::kVariable);
    } else if (next == '"' && !isText) {
      line.SkipQuoted();
      line.End(Style::kString);
    } else if (IsWordByte(next)) {
      std::string_view word = line.SkipWord();
      line.End(isText ? Style::kText : kWords.StyleOf(word));
      isText = isText || WritesText(word);
    } else {
      line.Skip(next == '^' ? 2 : 1);
      line.End(Style::kText);
      isText = isText && next != '&' && next != '|';
    }
    return isText;
  }
};

}  // namespace

const Lexer& BatchLexer() {
  static const BatchFileLexer lexer;
  return lexer;
}

}  // namespace tarrow
