#include "viewer/views/view_copy.h"

#include "base/exceptions.h"
#include "base/utf16.h"

namespace tarrow {

std::string SelectedText(ViewRows& rows, const CellSelection& selection, std::size_t most,
                         Progress* progress) {
  std::string text;
  ProgressTicker ticker(progress, 256);
  LineNo first = selection.Start().row, last = selection.End().row;
  for (LineNo row = first; row <= last; ++row) {
    if (row != first) text += "\r\n";
    ColumnSpan span = rows.CopiedOf(row, selection);
    text += Utf16ToUtf8(rows.Read(row).Piece(span).text);
    if (text.size() > most) throw CMemoryException();
    if (progress) progress->SetDone(row - first);
    ticker.Tick();
  }
  return text;
}

}  // namespace tarrow
