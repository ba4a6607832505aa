// What a view shows: the rows of a file, and how its cells and its bytes belong together.
//
// Rows are the records of the file. Every call may read the file and throw CFileException; the file may have
// changed since, in which case a row holds what is there now, or nothing.
#pragma once

#include "base/file_range.h"
#include "base/units.h"
#include "viewer/views/view_row.h"

#include <array>
#include <compare>
#include <cstdint>

namespace tarrow {

// A cell of a view.
struct CellPos {
  LineNo row;
  ColumnNo column;

  friend constexpr auto operator<=>(CellPos, CellPos) = default;
};

// The cells between two, of which the first was marked first.
struct CellSelection {
  CellPos anchor;
  CellPos caret;

  bool Empty() const { return anchor == caret; }
  CellPos Start() const { return std::min(anchor, caret); }
  CellPos End() const { return std::max(anchor, caret); }
  friend bool operator==(const CellSelection&, const CellSelection&) = default;
};

// The parts of a row that stand out as selected, from the left; the second one may be empty. They may reach
// one column beyond the row, for its end.
using RowMarks = std::array<ColumnSpan, 2>;

class ViewRows {
 public:
  virtual ~ViewRows() = default;

  virtual std::int32_t Count() const = 0;

  // How many columns the longest row has, as far as it is known.
  virtual int Longest() const = 0;

  // A row, valid until the next call. It is empty for a number that is no row.
  virtual const ViewRow& Read(LineNo row) = 0;

  // What of a row stands out with a selection, and what of it is copied.
  virtual RowMarks MarksOf(LineNo row, const CellSelection& selection) = 0;
  virtual ColumnSpan CopiedOf(LineNo row, const CellSelection& selection) = 0;

  // The bytes that a selection stands for, and the selection that shows some bytes; where it is empty, the
  // byte at the caret.
  virtual FileRange BytesOf(const CellSelection& selection) = 0;
  virtual CellSelection CellsOf(const FileRange& bytes) = 0;

  // What a double click on a cell selects.
  virtual CellSelection WordAt(CellPos cell) = 0;
};

}  // namespace tarrow
