#include "viewer/views/printed_rows.h"

#include "base/utf16.h"

#include <utility>

namespace tarrow {

PrintedRows::PrintedRows(std::function<ViewRows*()> rows, std::optional<CellSelection> part)
    : rows_(std::move(rows)), part_(part) {
  if (part_) row_ = part_->Start().row;
}

bool PrintedRows::IsBehindLast(const ViewRows& rows) const {
  if (row_.value >= rows.Count()) return true;
  if (!part_) return false;
  CellPos end = part_->End();
  return row_ > end.row || (row_ == end.row && end.column == ColumnNo(0) && row_ > part_->Start().row);
}

std::optional<TextView> PrintedRows::Next() {
  ViewRows* rows = rows_();
  if (!rows || IsBehindLast(*rows)) return std::nullopt;
  std::optional<ColumnSpan> span;
  if (part_) span = rows->CopiedOf(row_, *part_);
  const ViewRow& row = rows->Read(row_);
  line_ = Utf16ToUtf8(row.Piece(span.value_or(ColumnSpan{0, row.Columns()})).text);
  ++row_;
  return TextView(line_);
}

}  // namespace tarrow
