#include "search/pattern/find_pattern.h"

#include "base/byte_scan.h"
#include "base/utf16.h"
#include "search/pattern/byte_code.h"
#include "search/pattern/code_page_alphabet.h"
#include "search/pattern/first_char_map.h"
#include "search/pattern/regex_compiler.h"

#include <new>
#include <string>

namespace tarrow {
namespace {

// The pattern in the bytes of the charset. A character that the charset lacks occurs in no such text, so it
// becomes a set that nothing is in; "?", which stands for it elsewhere, means something in a pattern.
std::string PatternBytes(std::string_view pattern, Charset charset) {
  if (charset.IsUtf8()) return std::string(pattern);
  std::string bytes;
  while (!pattern.empty()) {
    Utf8Character c = ReadUtf8(pattern);
    std::string encoded = charset.Encode(c.code);
    bytes += encoded == "?" && c.code != '?' ? "[z-a]" : encoded;
    pattern.remove_prefix(c.length);
  }
  return bytes;
}

PatternError Compile(std::string_view text, FindOptions options, CompiledPattern& compiled) {
  compiled.foldCase = !options.matchCase;
  PatternError error = options.wholeWord ? CompilePattern("\\<" + std::string(text) + "\\>", compiled)
                                         : CompilePattern(text, compiled);
  if (error == PatternError::kNone) ComputeFirstCharMap(compiled);
  return error;
}

// Does the operation take bytes for characters, whatever stands beside it?
bool TakesBytes(ByteCode code, int at) {
  switch (OpcodeAt(code, at)) {
    case Opcode::kAnyChar:
    case Opcode::kCharSetNot:
    case Opcode::kWordStart:
    case Opcode::kWordEnd:
      return true;
    default:
      return false;
  }
}

}  // namespace

PatternError CompileFindPattern(std::string_view text, FindOptions options, CompiledPattern& compiled) {
  compiled.isForUtf8 = false;
  compiled.alphabet.reset();
  try {
    return Compile(text, options, compiled);
  } catch (const std::bad_alloc&) {
    return PatternError::kOutOfMemory;
  }
}

PatternError CompileFindPattern(std::string_view text, FindOptions options, Charset charset,
                                CompiledPattern& compiled) {
  try {
    compiled.isForUtf8 = charset.IsUtf8();
    compiled.alphabet = charset.IsUtf8() ? nullptr : AlphabetOf(charset);
    return Compile(PatternBytes(text, charset), options, compiled);
  } catch (const std::bad_alloc&) {
    return PatternError::kOutOfMemory;
  }
}

// An empty match could lie within a character. A literal beyond ASCII is the same in bytes while it stands
// alone and case matters; a loop or a set may take its bytes apart.
bool NeedsUtf8(std::string_view text, const CompiledPattern& compiled) {
  if (compiled.canBeEmpty == CanBeEmpty::kAnywhere) return true;
  bool isAscii = FindHighByte(text) == text.size();
  if (!isAscii && (compiled.foldCase || !IsUtf8(text))) return true;
  ByteCode code = compiled.code;
  for (int at = 0; at < static_cast<int>(code.size()); at += OperationSize(code, at)) {
    bool isLiteral = OpcodeAt(code, at) == Opcode::kExact;
    if (TakesBytes(code, at) || (!isAscii && !isLiteral)) return true;
  }
  return false;
}

}  // namespace tarrow
