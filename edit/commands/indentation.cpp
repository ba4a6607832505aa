#include "edit/commands/indentation.h"

namespace tarrow {

Indentation MeasureIndentation(TextView text, BytePos lineStart, int tabSize) {
  Indentation indent{0, lineStart};
  for (int byte; IsBlank(byte = text.At(indent.end)); ++indent.end)
    indent.width += byte == '\t' ? tabSize - indent.width % tabSize : 1;
  return indent;
}

void AppendIndentation(EditList& edits, std::int64_t width, const IndentSettings& settings) {
  std::int64_t tabs = settings.expandTabs ? 0 : width / settings.tabSize;
  edits.Append(static_cast<std::size_t>(tabs), '\t');
  edits.Append(static_cast<std::size_t>(width - tabs * settings.tabSize), ' ');
}

std::int64_t IndentationSize(std::int64_t width, const IndentSettings& settings) {
  return settings.expandTabs ? width : width / settings.tabSize + width % settings.tabSize;
}

BytePos SkipBlanks(TextView text, BytePos p) {
  while (IsBlank(text.At(p))) ++p;
  return p;
}

}  // namespace tarrow
