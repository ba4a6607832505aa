// A pattern for the lines of files whose character set is not known: each line is judged by itself.
//
// A line in ASCII, the usual one, is searched by its bytes. One that is valid UTF-8 beyond that is searched
// by its characters, and any other is in the system's code page, if the pattern asks for such a difference.
#pragma once

#include "search/pattern/find_pattern.h"

#include <string_view>

namespace tarrow {

class LinePattern {
 public:
  // Compiles `text`, UTF-8, ready to search with. A text that is not UTF-8 is a pattern of bytes for every
  // line. Nothing is thrown.
  [[nodiscard]] PatternError Compile(std::string_view text, FindOptions options);

  // The pattern of bytes; does for every line of ASCII.
  CompiledPattern& Plain() { return plain_; }

  // Whether it does for lines beyond ASCII too.
  bool IsPlainForAll() const { return !needsUtf8_ && !needsCodePage_; }

  // The pattern for a line, or for a part of one, which may begin or end within a character.
  CompiledPattern& ForLine(std::string_view line) { return For(line); }
  CompiledPattern& ForPart(std::string_view part);

 private:
  CompiledPattern& For(std::string_view wholeCharacters);

  CompiledPattern plain_, utf8_, codePage_;
  bool needsUtf8_ = false;
  bool needsCodePage_ = false;
};

}  // namespace tarrow
