#include "search/files/line_pattern.h"

#include "base/byte_scan.h"
#include "base/utf16.h"
#include "search/pattern/byte_code.h"

#include <algorithm>

namespace tarrow {
namespace {

bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// `line` without what may be parts of characters at its ends.
std::string_view WholeCharacters(std::string_view line) {
  for (int i = 0; i < 3 && !line.empty() && IsContinuation(line.front()); ++i) line.remove_prefix(1);
  std::size_t last = line.size();
  for (int i = 0; i < 3 && last > 0 && IsContinuation(line[last - 1]); ++i) --last;
  bool isCut = last > 0 && ReadUtf8(line.substr(last - 1)).length < line.size() - last + 1;
  return isCut ? line.substr(0, last - 1) : line;
}

// Where the letters of a code page matter: in the pattern itself, at words, in a register compared in any
// case.
bool NeedsCodePage(std::string_view text, const CompiledPattern& compiled) {
  if (FindHighByte(text) < text.size()) return true;
  ByteCode code = compiled.code;
  for (int at = 0; at < static_cast<int>(code.size()); at += OperationSize(code, at)) {
    Opcode op = OpcodeAt(code, at);
    bool isWord = op == Opcode::kWordStart || op == Opcode::kWordEnd;
    if (isWord || (op == Opcode::kBackRef && compiled.foldCase)) return true;
  }
  return false;
}

}  // namespace

PatternError LinePattern::Compile(std::string_view text, FindOptions options) {
  needsUtf8_ = needsCodePage_ = false;
  PatternError error = CompileFindPattern(text, options, plain_);
  if (error != PatternError::kNone || !IsUtf8(text)) return error;
  needsUtf8_ = NeedsUtf8(text, plain_);
  needsCodePage_ = NeedsCodePage(text, plain_);
  if (needsUtf8_) error = CompileFindPattern(text, options, Charset(), utf8_);
  if (needsCodePage_ && error == PatternError::kNone)
    error = CompileFindPattern(text, options, Charset(SystemCodePage()), codePage_);
  return error;
}

CompiledPattern& LinePattern::ForPart(std::string_view part) {
  return For(WholeCharacters(part));
}

CompiledPattern& LinePattern::For(std::string_view wholeCharacters) {
  if (IsUtf8(wholeCharacters)) return needsUtf8_ ? utf8_ : plain_;
  return needsCodePage_ ? codePage_ : plain_;
}

}  // namespace tarrow
