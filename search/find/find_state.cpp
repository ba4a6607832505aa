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

// Compiles anew unless the pattern is compiled for `wanted` already.
PatternError CompileFor(FindState& state, FindState::For wanted, Charset charset) {
  if (!state.needsCompile && state.compiledFor == wanted) return PatternError::kNone;
  state.needsCompile = true;
  FindOptions options{state.matchCase, state.wholeWord};
  bool isOfBytes = wanted == FindState::For::kBytes;
  PatternError error = isOfBytes ? CompileFindPattern(state.pattern, options, state.compiled)
                                 : CompileFindPattern(state.pattern, options, charset, state.compiled);
  if (error != PatternError::kNone) return error;
  if (isOfBytes) state.needsUtf8 = NeedsUtf8(state.pattern, state.compiled);
  state.compiledFor = wanted;
  state.needsCompile = false;
  return PatternError::kNone;
}

int MessageOf(PatternError error) {
  return error == PatternError::kNone ? 0 : PatternErrorMessage(error);
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

// Whether the pattern of bytes will do is known when it has been compiled once.
int CompileIfNeeded(FindState& state, Charset charset, TextView text) {
  bool isForUtf8 = !state.needsCompile && state.compiledFor == FindState::For::kUtf8;
  auto plain = charset.IsUtf8() ? FindState::For::kBytes : FindState::For::kCodePage;
  if (!charset.IsUtf8() || !isForUtf8)
    if (int message = MessageOf(CompileFor(state, plain, charset))) return message;
  if (!charset.IsUtf8() || !state.needsUtf8) return 0;
  return MessageOf(
      CompileFor(state, IsAscii(text) ? FindState::For::kBytes : FindState::For::kUtf8, charset));
}

}  // namespace tarrow
