// Rows of plain characters for tests of what moves over rows, whatever they show.
#pragma once

#include "viewer/views/view_rows.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tarrow {

class GridRows final : public ViewRows {
 public:
  explicit GridRows(std::vector<std::string> rows) : rows_(std::move(rows)) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(rows_.size()); }
  int Longest() const override {
    std::size_t longest = 0;
    for (const std::string& row : rows_) longest = std::max(longest, row.size());
    return static_cast<int>(longest);
  }
  const ViewRow& Read(LineNo row) override {
    ++reads;
    row_.Clear();
    if (row.value < Count()) row_.AppendAscii(rows_[static_cast<std::size_t>(row.value)]);
    return row_;
  }
  RowMarks MarksOf(LineNo row, const CellSelection& selection) override {
    CellPos start = selection.Start(), end = selection.End();
    if (row < start.row || row > end.row) return {};
    return {ColumnSpan{row == start.row ? start.column.value : 0,
                       row == end.row ? end.column.value : Read(row).Columns() + 1}};
  }
  ColumnSpan CopiedOf(LineNo row, const CellSelection& selection) override {
    ColumnSpan span = MarksOf(row, selection)[0];
    return {span.from, std::min(span.to, Read(row).Columns())};
  }
  FileRange BytesOf(const CellSelection&) override { return {}; }
  CellSelection CellsOf(const FileRange&) override { return {}; }
  CellSelection WordAt(CellPos cell) override { return {cell, cell}; }

  int reads = 0;

 private:
  std::vector<std::string> rows_;
  ViewRow row_;
};

}  // namespace tarrow
