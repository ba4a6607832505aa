// The rows of a text view: lines with their tabs expanded, at most 255 columns of each.
//
// The text is shown in its own character set, that of the whole file. A tab reaches to the next multiple of
// the tab width, counted in columns.
#pragma once

#include "edit/text/charset.h"
#include "viewer/records/record_file.h"
#include "viewer/views/view_rows.h"

#include <string>

namespace tarrow {

class TextViewRows final : public ViewRows {
 public:
  static constexpr int kMostColumns = 255;

  // `file` is open and outlives the object.
  TextViewRows(CLineFile& file, int tabWidth);

  Charset TextCharset() const { return charset_; }

  std::int32_t Count() const override { return static_cast<std::int32_t>(file_.RecordCount()); }
  int Longest() const override { return longest_; }
  const ViewRow& Read(LineNo row) override;
  RowMarks MarksOf(LineNo row, const CellSelection& selection) override;
  ColumnSpan CopiedOf(LineNo row, const CellSelection& selection) override;
  FileRange BytesOf(const CellSelection& selection) override;
  CellSelection CellsOf(const FileRange& bytes) override;
  CellSelection WordAt(CellPos cell) override;

 private:
  std::string_view BytesOfLine(LineNo row);
  std::uint64_t ByteOf(CellPos cell);
  CellPos CellOf(std::uint64_t byte);

  CLineFile& file_;
  int tabWidth_;
  Charset charset_;
  int longest_;
  std::string bytes_;
  ViewRow row_;
};

}  // namespace tarrow
