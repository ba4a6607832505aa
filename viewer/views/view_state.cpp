#include "viewer/views/view_state.h"

#include <algorithm>

namespace tarrow {
namespace {

// A window that is made higher at the end of the file does not pull the view back by itself.
std::int64_t LowestTop(const ViewState& state, ViewPage page, const ViewRows& rows) {
  std::int64_t last = std::max(rows.Count() - 1, 0);
  return std::max(LastTop(rows.Count(), page).value, std::min<std::int32_t>(state.top.value, last));
}

LineNo RowWithin(LineNo row, const ViewRows& rows) {
  return std::clamp(row, LineNo(0), LineNo(std::max(rows.Count() - 1, 0)));
}

CellPos CellWithin(CellPos cell, ViewRows& rows) {
  LineNo row = RowWithin(cell.row, rows);
  return {row, ColumnNo(rows.Read(row).SnapBack(std::max(cell.column.value, 0)))};
}

bool IsRowInView(LineNo row, const ViewState& state, ViewPage page) {
  return row >= state.top && row - state.top < page.rows;
}

}  // namespace

LineNo LastTop(std::int32_t count, ViewPage page) {
  return LineNo(std::max(count - page.rows, 0));
}

ViewState ScrolledTo(ViewState state, std::int64_t top, ViewPage page, const ViewRows& rows) {
  std::int64_t lowest = top > state.top.value ? LowestTop(state, page, rows) : state.top.value;
  state.top = LineNo(std::clamp<std::int64_t>(top, 0, lowest));
  return state;
}

ViewState ScrolledSideways(ViewState state, std::int64_t left, const ViewRows& rows) {
  std::int64_t farthest = std::max(rows.Longest(), 0);
  state.left = ColumnNo(std::clamp<std::int64_t>(left, 0, farthest));
  return state;
}

ViewState WithCaretAt(ViewState state, CellPos cell, bool extend, ViewRows& rows) {
  state.selection.caret = CellWithin(cell, rows);
  if (!extend) state.selection.anchor = state.selection.caret;
  state.wanted = state.selection.caret.column;
  return state;
}

ViewState ShowingCaret(ViewState state, ViewPage page, const ViewRows& rows) {
  CellPos caret = state.Caret();
  std::int64_t lowest = caret.row.value, highest = lowest - page.rows + 1;
  state.top = LineNo(std::max<std::int64_t>(0, std::clamp<std::int64_t>(state.top.value, highest, lowest)));
  while (caret.column < state.left) state = ScrolledSideways(state, state.left.value - page.columns, rows);
  for (ColumnNo before(-1); caret.column - state.left >= page.columns && before != state.left;) {
    before = state.left;
    state = ScrolledSideways(state, state.left.value + std::int64_t{page.columns}, rows);
  }
  return state;
}

ViewState ShowingSelection(ViewState state, const CellSelection& selection, ViewPage page, ViewRows& rows) {
  state.selection = {CellWithin(selection.anchor, rows), CellWithin(selection.caret, rows)};
  state.wanted = state.Caret().column;
  LineNo row = state.selection.Start().row;
  if (!IsRowInView(row, state, page) || !IsRowInView(state.Caret().row, state, page)) {
    std::int64_t top = std::int64_t{row.value} - page.rows / 3;
    state.top = std::clamp(LineNo(std::max<std::int64_t>(top, 0)), LineNo(0), LastTop(rows.Count(), page));
  }
  // The start matters more than the end, so it is shown last.
  CellSelection kept = state.selection;
  state = ShowingCaret(state, page, rows);
  state.selection.caret = kept.Start();
  state = ShowingCaret(state, page, rows);
  state.selection = kept;
  return state;
}

ViewState WithinRows(ViewState state, ViewPage page, ViewRows& rows) {
  state.selection.anchor = CellWithin(state.selection.anchor, rows);
  state.selection.caret = CellWithin(state.selection.caret, rows);
  state.top = std::min(state.top, LastTop(rows.Count(), page));
  return ScrolledSideways(state, state.left.value, rows);
}

bool IsCaretInView(const ViewState& state, ViewPage page) {
  CellPos caret = state.Caret();
  return IsRowInView(caret.row, state, page) && caret.column >= state.left &&
         caret.column - state.left < page.columns;
}

}  // namespace tarrow
