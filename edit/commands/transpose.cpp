#include "edit/commands/transpose.h"

#include "edit/text/line_bounds.h"

namespace tarrow {

namespace {

EditOutcome SwapCharacters(TextView text, BytePos caret, Charset charset) {
  TextRange before{charset.Previous(text, caret), caret};
  TextRange after{caret, charset.Next(text, caret)};
  EditOutcome outcome;
  outcome.edits.Add({before.start, after.end}, text.Copy(after) + text.Copy(before));
  BytePos between = before.start + after.Length();
  bool joins = text.At(after.start) == '\r' && text.At(before.start) == '\n';
  if (joins) ++between;  // they have become a line end
  outcome.selection = {between, between};
  return outcome;
}

// The line that begins at `second` moves above the one that begins at `first`; `caret` goes along with the
// character that it stands at.
EditOutcome SwapLines(TextView text, BytePos first, BytePos second, BytePos caret) {
  TextRange above{first, second - 2}, below{second, LineEnd(text, second)};
  EditOutcome outcome;
  outcome.edits.Add({above.start, below.end}, text.Copy(below) + "\r\n" + text.Copy(above));
  BytePos to = caret < second ? caret + below.Length() + 2 : first + (caret - second);
  outcome.selection = {to, to};
  return outcome;
}

}  // namespace

EditOutcome Transpose(TextView text, TextRange selection, Charset charset) {
  BytePos caret = selection.start;
  auto refusal = EditOutcome::Refuse(selection, Beep::kStop);
  if (!selection.Empty() || caret == BytePos(0) || caret == text.End()) return refusal;
  BytePos start = LineStart(text, caret);
  if (caret == start) return SwapLines(text, LineStart(text, start - 1), start, caret);
  if (!AtLineBreak(text, caret)) return SwapCharacters(text, caret, charset);
  BytePos next = caret + 2;
  if (next == text.End()) return refusal;
  return SwapLines(text, start, next, caret);
}

}  // namespace tarrow
