#include "edit/commands/case_change.h"

namespace tarrow {

EditOutcome ChangeCase(TextView text, TextRange selection, LetterCase to, Charset charset) {
  TextRange range = selection;
  if (range.Empty()) range.end = charset.Next(text, range.start);
  EditOutcome outcome;
  std::string changed;
  AppendConverted(changed, text.Sub(range), to, charset);
  BytePos end = range.start + static_cast<std::int64_t>(changed.size());
  outcome.selection = {selection.Empty() ? end : range.start, end};
  if (changed != text.Copy(range)) outcome.edits.Add(range, changed);
  return outcome;
}

}  // namespace tarrow
