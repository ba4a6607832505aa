#include "search/find/find_state.h"

#include "base/byte_scan.h"
#include "base/utf16.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/regex_compiler.h"

namespace tarrow {

namespace {

bool HoldsLf(TextView text) {
  return FindByte(text.head, '\n') < text.head.size() || FindByte(text.tail, '\n') < text.tail.size();
}

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

}  // namespace

void FindState::SetOptions(bool newMatchCase, bool newWholeWord) {
  if (newMatchCase != matchCase || newWholeWord != wholeWord) needsCompile = true;
  matchCase = newMatchCase;
  wholeWord = newWholeWord;
}

bool TakeSelectionAsPattern(FindState& state, TextView text, TextRange selection, Charset charset) {
  TextView selected = text.Sub(selection);
  if (selection.Empty() || HoldsLf(selected)) return false;
  std::string taken =
      charset.IsUtf8() ? selected.Copy() : Utf16ToUtf8(std::u16string_view(charset.ToWide(selected)));
  taken.erase(taken.find_last_not_of(" \t\r\n\v\f") + 1);
  if (taken == state.pattern) return false;
  state.pattern = std::move(taken);
  state.needsCompile = true;
  return true;
}

int CompileIfNeeded(FindState& state, Charset charset) {
  if (!state.needsCompile && state.compiledForUtf8 == charset.IsUtf8()) return 0;
  state.needsCompile = true;
  PatternError error = CompileFindPattern(PatternBytes(state.pattern, charset),
                                          {state.matchCase, state.wholeWord}, state.compiled);
  if (error != PatternError::kNone) return PatternErrorMessage(error);
  state.compiledForUtf8 = charset.IsUtf8();
  state.needsCompile = false;
  return 0;
}

}  // namespace tarrow
