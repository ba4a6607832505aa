// The indentation of a line: how wide its leading blanks are, and the blanks for a width.
//
// Widths are columns. Indentation is always written as tabs and then the spaces that remain, or as spaces
// alone where the user wants no tabs, whatever the line had before.
#pragma once

#include "base/text_view.h"
#include "edit/text/edit_list.h"

namespace tarrow {

// What the user has set, in columns: the distance of tab stops, and how far the Shift commands move a line;
// and whether spaces stand for tabs.
struct IndentSettings {
  int tabSize = 8;
  int shiftWidth = 4;
  bool expandTabs = false;
};

struct Indentation {
  std::int64_t width = 0;
  BytePos end;  // the first character that is no blank
};

constexpr bool IsBlank(int byte) {
  return byte == ' ' || byte == '\t';
}

// The indentation of the line that begins at `lineStart`.
Indentation MeasureIndentation(TextView text, BytePos lineStart, int tabSize);

// Appends the blanks for `width` columns to the replacement under way.
void AppendIndentation(EditList& edits, std::int64_t width, const IndentSettings& settings);

// How many bytes those are.
std::int64_t IndentationSize(std::int64_t width, const IndentSettings& settings);

// The end of the blanks that begin at `p`.
BytePos SkipBlanks(TextView text, BytePos p);

}  // namespace tarrow
