#include "edit/commands/auto_indent.h"

#include "edit/text/line_bounds.h"

namespace tarrow {

namespace {

// The look-back stops at the first character that is no blank, and that may be the LF of the line above.
bool OpensBlock(TextView text, BytePos end) {
  BytePos p = end - 1;
  while (IsBlank(text.At(p))) --p;
  int byte = text.At(p);
  return byte == '{' || byte == '(' || byte == ':';
}

}  // namespace

EditOutcome BreakLine(TextView text, TextRange selection, IndentSettings settings, bool indentBlocks) {
  EditOutcome outcome;
  std::int64_t width = MeasureIndentation(text, LineStart(text, selection.start), settings.tabSize).width;
  if (indentBlocks && OpensBlock(text, selection.end)) width += settings.shiftWidth;
  outcome.edits.Append("\r\n");
  AppendIndentation(outcome.edits, width, settings);
  outcome.edits.Finish({selection.start, SkipBlanks(text, selection.end)});
  BytePos caret = selection.start + static_cast<std::int64_t>(outcome.edits[0].text.size());
  outcome.selection = {caret, caret};
  return outcome;
}

BytePos HomePosition(TextView text, TextRange selection) {
  BytePos start = LineStart(text, selection.start), firstText = SkipBlanks(text, start);
  return selection.start == firstText ? start : firstText;
}

}  // namespace tarrow
