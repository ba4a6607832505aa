// What the window of a view shows, and where its caret stands: values, changed by pure functions.
//
// Rows and columns count from 0. A page is what the window has room for: whole rows and whole columns, at
// least one of each. The view never scrolls beyond the last full page by itself, nor beyond the last column.
// A function that asks for the length of rows reads them and may throw CFileException; nothing has changed
// then.
#pragma once

#include "viewer/views/view_rows.h"

#include <cstdint>

namespace tarrow {

struct ViewPage {
  std::int32_t rows = 1;
  std::int32_t columns = 1;
};

struct ViewState {
  LineNo top;     // the first row in view
  ColumnNo left;  // the first column in view
  CellSelection selection;
  ColumnNo wanted;  // the column that going up and down aims at

  CellPos Caret() const { return selection.caret; }
  friend bool operator==(const ViewState&, const ViewState&) = default;
};

// The top row at which the last row stands at the bottom.
LineNo LastTop(std::int32_t count, ViewPage page);

// Scrolls by whole rows or columns; the caret stays where it is.
ViewState ScrolledTo(ViewState state, std::int64_t top, ViewPage page, const ViewRows& rows);
ViewState ScrolledSideways(ViewState state, std::int64_t left, const ViewRows& rows);

// Puts the caret before the character at `cell`, brought into the text. With `extend` the selection reaches
// to there, otherwise it ends.
ViewState WithCaretAt(ViewState state, CellPos cell, bool extend, ViewRows& rows);

// Scrolls so that the caret is in view: by as few rows as needed, but by whole pages sideways.
ViewState ShowingCaret(ViewState state, ViewPage page, const ViewRows& rows);

// Selects some cells, or puts the caret somewhere, far away perhaps: where that is out of view, it comes to
// stand in the upper half of the window.
ViewState ShowingSelection(ViewState state, const CellSelection& selection, ViewPage page, ViewRows& rows);

// The same view of a file that has become another: all within what it has now.
ViewState WithinRows(ViewState state, ViewPage page, ViewRows& rows);

// Whether the caret's cell is in view.
bool IsCaretInView(const ViewState& state, ViewPage page);

}  // namespace tarrow
