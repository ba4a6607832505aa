#include "search/find/find_text.h"

#include "search/pattern/pattern_search.h"
#include "ui/program/string_ids.h"

#include <algorithm>

namespace tarrow {

namespace {

struct Pass {
  BytePos start;
  std::int32_t range;  // negative: backwards
};

void StepForward(Pass& pass) {
  ++pass.start;
  pass.range = std::max(pass.range - 1, 0);
}

// So that "^" moves on from a line start, and a match at a line end does too.
void StepOffAnchors(Pass& pass, const CompiledPattern& pattern, TextView text) {
  bool atLineStart = pass.start == BytePos(0) || text.At(pass.start - 1) == '\n';
  if (pattern.hasLineStart && atLineStart) return StepForward(pass);
  if (text.At(pass.start) == '\r') StepForward(pass);
  if (text.At(pass.start) == '\n') StepForward(pass);
}

// A search backwards begins at the character before the selection. From the first character it tries that
// one alone, and from the start of the text nothing.
Pass FirstPass(bool forward, TextView text, TextRange selection) {
  if (forward) return {selection.end, text.End() - selection.end};
  if (selection.start == BytePos(0)) return {BytePos(0), 0};
  BytePos start = selection.start - 1;
  return {start, std::min(-start.value, -1)};
}

// There is no second pass when the first covers the whole text: forwards from its start, backwards from its
// last character.
int PassCount(bool forward, TextView text, BytePos start) {
  bool coversAll = forward ? start == BytePos(0) : text.End() - start == 1;
  return coversAll ? 1 : 2;
}

Pass SecondPass(bool forward, TextView text) {
  if (forward) return {BytePos(0), text.Size()};
  return {text.End(), -text.Size()};
}

bool FindInPass(FindState& state, TextView text, Pass pass, Progress* progress,
                std::optional<BytePos> stop = std::nullopt) {
  if (pass.start > text.End()) return false;
  return SearchPattern(state.compiled, text, pass.start, pass.range, &state.registers, progress, stop) >= 0;
}

}  // namespace

std::optional<TextRange> FindText(FindState& state, TextView text, TextRange selection, Charset charset,
                                  FindDialogue& user, Progress* progress) {
  if (int message = CompileIfNeeded(state, charset, text)) {
    user.Complain(message);
    return std::nullopt;
  }
  bool forward = state.searchForward;
  Pass pass = FirstPass(forward, text, selection);
  int passes = PassCount(forward, text, pass.start);
  if (forward) StepOffAnchors(pass, state.compiled, text);
  while (!FindInPass(state, text, pass, progress)) {
    if (--passes == 0) {
      user.Complain(kTextNotFound);
      return std::nullopt;
    }
    if (!user.ConfirmRestart(forward ? kTextRestartFromStart : kTextRestartFromEnd)) return std::nullopt;
    pass = SecondPass(forward, text);
  }
  return state.registers.Range(0);
}

std::optional<TextRange> FindTextWithin(FindState& state, TextView text, TextRange range, bool isFirst,
                                        Charset charset, FindDialogue& user, Progress* progress) {
  if (int message = CompileIfNeeded(state, charset, text)) {
    user.Complain(message);
    return std::nullopt;
  }
  Pass pass{range.start, range.Length()};
  if (!isFirst) StepOffAnchors(pass, state.compiled, text);
  if (FindInPass(state, text, pass, progress, range.end)) return state.registers.Range(0);
  user.Complain(kTextNotFound);
  return std::nullopt;
}

}  // namespace tarrow
