// The rows of a hex view, and what of them is selected.
//
// A selection is one of bytes: all between its two ends, in the part of the row where it was begun. It stands
// out in the digits and in the characters alike; copied is the part where it was begun, or whole rows when
// that was among the offsets.
#pragma once

#include "viewer/records/hex_rows.h"
#include "viewer/records/record_file.h"
#include "viewer/views/view_rows.h"

namespace tarrow {

class HexViewRows final : public ViewRows {
 public:
  // `file` has records of kHexRowBytes and outlives the object.
  explicit HexViewRows(CFixedRecordFile& file) : file_(file) {}

  std::int32_t Count() const override { return static_cast<std::int32_t>(file_.RecordCount()); }
  int Longest() const override;
  const ViewRow& Read(LineNo row) override;
  RowMarks MarksOf(LineNo row, const CellSelection& selection) override;
  ColumnSpan CopiedOf(LineNo row, const CellSelection& selection) override;
  FileRange BytesOf(const CellSelection& selection) override;
  CellSelection CellsOf(const FileRange& bytes) override;
  CellSelection WordAt(CellPos cell) override;

 private:
  CFixedRecordFile& file_;
  ViewRow row_;
};

// Where the digits of a byte stand, in a file of any size.
CellPos HexCellOf(std::uint64_t byte);

}  // namespace tarrow
