// Any lines in any lexer, from any state: every byte has one style, no run splits a character, the state does
// not depend on whether runs are asked for, and a line that is long ends as its beginning does.
#include "edit/lexers/lexers.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

using namespace tarrow;  // NOLINT

const Lexer& LexerNumber(std::uint8_t choice) {
  constexpr const Lexer& (*kAll[])() = {
      CSourceLexer, ResourceLexer, MakefileSourceLexer, ModuleDefinitionLexer, IniLexer,
      BatchLexer,   MarkdownLexer, SearchResultLexer,   ComparisonLexer,       BuildLogLexer};
  return kAll[choice % std::size(kAll)]();
}

void Expect(bool holds) {
  if (!holds) std::abort();
}

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

void ExpectCovers(const StyleRuns& runs, std::string_view line) {
  std::size_t from = 0;
  for (const StyleRun& run : runs) {
    auto to = static_cast<std::size_t>(run.end);
    Expect(to > from && to <= line.size());
    // Behind an ASCII byte, or the mark at the start, a continuation is no part of a character.
    bool isWithin =
        to < line.size() && IsContinuation(line[to]) && static_cast<signed char>(line[to - 1]) < 0;
    Expect(!isWithin || to == ByteOrderMarkSize(line) || to > kLexedOfLine - 4);
    from = to;
  }
  Expect(from == line.size());
}

LexState LexLine(const Lexer& lexer, std::string_view line, LexState state) {
  StyleRuns runs;
  LexState next = lexer.Lex(line, state, &runs);
  ExpectCovers(runs, line);
  Expect(next == lexer.Lex(line, state, nullptr));
  runs.JoinBlanks(line);
  ExpectCovers(runs, line);
  return next;
}

// The same again and again, until no lexer looks at all of it.
std::string Repeated(std::string_view line) {
  std::string text;
  while (!line.empty() && text.size() <= kLexedOfLine) text += line;
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const Lexer& lexer = LexerNumber(data[0]);
  LexState state = data[1];
  std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
  if (data[0] >= 240) LexLine(lexer, Repeated(text.substr(0, text.find('\n'))), state);
  while (!text.empty()) {
    std::size_t end = std::min(text.find('\n'), text.size());
    state = LexLine(lexer, text.substr(0, end), state);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  for (std::uint8_t byte : {data[0], data[1]})
    state = LexLine(lexer, std::string(1, static_cast<char>(byte)), state);
  return 0;
}
