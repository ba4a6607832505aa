#include "edit/commands/shift_lines.h"

#include "edit/text/line_bounds.h"

#include <algorithm>

namespace tarrow {

namespace {

// Changes the indentation of one line; returns by how many bytes the line grows.
std::int64_t ShiftLine(TextView text, BytePos lineStart, int columns, const IndentSettings& settings,
                       EditList& edits) {
  Indentation old = MeasureIndentation(text, lineStart, settings.tabSize);
  if (old.width == 0 && columns < 0) return 0;
  std::int64_t width = std::max<std::int64_t>(old.width + columns, 0);
  AppendIndentation(edits, width, settings);
  edits.Finish({lineStart, old.end});
  return IndentationSize(width, settings) - (old.end - lineStart);
}

}  // namespace

EditOutcome ShiftLines(TextView text, TextRange selection, int columns, const IndentSettings& settings) {
  EditOutcome outcome{{}, selection, Beep::kNone};
  BytePos first = LineStart(text, selection.start), line = first;
  std::int64_t growthBefore = 0;  // of the lines above `line`
  std::int64_t growthOfFirst = 0;
  for (;;) {
    std::int64_t growth = ShiftLine(text, line, columns, settings, outcome.edits);
    if (line == first) growthOfFirst = growth;
    std::optional<BytePos> next = NextLineStart(text, line);
    if (!next || *next > selection.end) {
      if (outcome.edits.Empty()) return outcome;
      BytePos end = selection.end + growthBefore + growth;
      outcome.selection.start = std::max(selection.start + growthOfFirst, first);
      outcome.selection.end = std::max(end, line + growthBefore);
      return outcome;
    }
    growthBefore += growth;
    line = *next;
  }
}

}  // namespace tarrow
