// Makefiles, of nmake and of make: comments, directives, what is given a value, targets, variables.
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_cursor.h"
#include "edit/lexers/word_table.h"

namespace tarrow {
namespace {

// What a line continues whose predecessor ends in a backslash.
enum State : LexState { kFresh, kComment, kValue };

constexpr std::string_view kDirectives[] = {
    "-include", "define", "else",    "endef",    "endif",    "export",   "ifdef",    "ifeq",
    "ifndef",   "ifneq",  "include", "override", "sinclude", "undefine", "unexport", "vpath",
};
constexpr WordTable kWords(WordTable::Case::kExact, {{kDirectives, Style::kDirective}});

bool IsPartOfName(char c) {
  return IsWordByte(c) || c == '-' || c == '.';
}

// Behind the brackets that open at `at`; the end of the line where they do not close.
std::size_t BehindBrackets(std::string_view line, std::size_t at) {
  char open = line[at], close = open == '(' ? ')' : '}';
  int depth = 0;
  for (; at < line.size(); ++at) {
    if (line[at] == open) ++depth;
    if (line[at] == close && --depth == 0) return at + 1;
  }
  return at;
}

// $(NAME), ${NAME}, or the dollar and one sign.
void SkipVariable(LineCursor& line) {
  char next = line.Peek(1);
  if (next == '(' || next == '{')
    line.SkipTo(BehindBrackets(line.Line(), line.At() + 1));
  else
    line.Skip(2);
}

// Dependencies, values and commands: plain but for variables, strings and, outside commands, a comment.
void LexValue(LineCursor& line, bool hasComments) {
  while (!line.AtEnd()) {
    line.SkipWhile([](char c) { return c != '$' && c != '"' && c != '#'; });
    bool isEscaped = line.Before() == '\\';
    char next = line.Peek();
    if (next == '#' && hasComments && !isEscaped) {
      line.End(Style::kText);
      return line.EndLine(Style::kComment);
    }
    if (next == '$') {
      line.End(Style::kText);
      if (line.Peek(1) > ' ') {  // a byte beyond ASCII is negative, or above every sign that names a variable
        SkipVariable(line);
        line.End(Style::kVariable);
        continue;
      }
    }
    if (next == '"' && !isEscaped) {
      line.End(Style::kText);
      line.SkipQuoted();
      line.End(Style::kString);
      continue;
    }
    line.Skip();
  }
  line.End(Style::kText);
}

// Where the name that begins here ends: in front of the "=" or ":" that says what it is, if one does.
struct Definition {
  std::size_t nameEnd = 0;
  Style style = Style::kText;
};

Definition FindDefinition(std::string_view line, std::size_t at) {
  for (; at < line.size() && line[at] != '#'; ++at) {
    char c = line[at], next = at + 1 < line.size() ? line[at + 1] : '\0';
    if (c == '$' && (next == '(' || next == '{')) {
      at = BehindBrackets(line, at + 1) - 1;
    } else if (c == '=' || ((c == ':' || c == '+' || c == '?' || c == '!') && next == '=') ||
               line.substr(at).starts_with("::=")) {
      return {at, Style::kKey};
    } else if (c == ':' && next != '\\' && next != '/') {
      return {at, Style::kSection};
    }
  }
  return {};
}

// A line that begins something, from its first sign that is no blank.
void LexFresh(LineCursor& line) {
  std::size_t from = line.At();
  if (line.Peek() == '!') {
    line.Skip();
    line.SkipBlanks();
    line.SkipWord();
    line.End(Style::kDirective);
  } else if (std::string_view word = line.SkipWhile(IsPartOfName);
             !word.empty() && kWords.StyleOf(word) != Style::kText) {
    line.End(Style::kDirective);
  } else if (Definition definition = FindDefinition(line.Line(), from); definition.style != Style::kText) {
    line.SkipTo(definition.nameEnd);
    line.End(definition.style);
  } else {
    line.SkipTo(from);
  }
  LexValue(line, true);
}

class MakefileLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState state, StyleRuns* runs) const override {
    bool continues = text.ends_with('\\');
    LineCursor line(text, runs);
    bool isCommand = state == kFresh && IsBlankByte(line.Peek());
    line.SkipBlanks();
    if (state == kComment || (state == kFresh && line.Peek() == '#')) {
      line.EndLine(Style::kComment);
      return continues ? kComment : kFresh;
    }
    if (!runs) return continues ? kValue : kFresh;
    // A continued line may continue a command or not; a "#" within one is rare.
    if (state == kValue || isCommand)
      LexValue(line, false);
    else
      LexFresh(line);
    return continues ? kValue : kFresh;
  }
};

}  // namespace

const Lexer& MakefileSourceLexer() {
  static const MakefileLexer lexer;
  return lexer;
}

}  // namespace tarrow
