#include "edit/commands/typing.h"

#include "edit/text/line_bounds.h"

namespace tarrow {

TextRange OvertypeRange(TextView text, TextRange selection, std::uint32_t character, Charset charset) {
  BytePos caret = selection.start;
  bool isControl = character < ' ' || character == kDeleteCharacter;
  if (isControl || !selection.Empty() || caret == text.End() || AtLineBreak(text, caret)) return selection;
  return {caret, charset.Next(text, caret)};
}

EditOutcome TypeTabAsSpaces(TextView text, TextRange selection, int tabSize, Charset charset) {
  std::int64_t column = 0;
  for (BytePos p = LineStart(text, selection.start); p < selection.start; p = charset.Next(text, p))
    column += text[p] == '\t' ? tabSize - column % tabSize : 1;
  std::int64_t spaces = tabSize - column % tabSize;
  EditOutcome outcome;
  outcome.edits.Append(static_cast<std::size_t>(spaces), ' ');
  outcome.edits.Finish(selection);
  outcome.selection = {selection.start + spaces, selection.start + spaces};
  return outcome;
}

}  // namespace tarrow
