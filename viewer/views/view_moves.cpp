#include "viewer/views/view_moves.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr int kJump = 15;  // columns

struct KeyRow {
  unsigned virtualKey;
  ViewKey plain, withControl;
};

constexpr KeyRow kKeys[] = {
    {0x21, {ViewMove::kPageUp}, {ViewMove::kTopOfWindow}},
    {0x22, {ViewMove::kPageDown}, {ViewMove::kBottomOfWindow}},
    {0x23, {ViewMove::kRowEnd}, {ViewMove::kFileEnd}},
    {0x24, {ViewMove::kRowStart}, {ViewMove::kFileStart}},
    {0x25, {ViewMove::kLeft, 1}, {ViewMove::kLeft, kJump}},
    {0x26, {ViewMove::kUp}, {ViewMove::kScrollUp}},
    {0x27, {ViewMove::kRight, 1}, {ViewMove::kRight, kJump}},
    {0x28, {ViewMove::kDown}, {ViewMove::kScrollDown}},
};

std::int64_t PageRows(ViewPage page) {
  return std::max(page.rows - 1, 1);
}

// The last row in view, or of the file.
LineNo BottomRow(const ViewState& state, ViewPage page, const ViewRows& rows) {
  std::int64_t bottom = std::int64_t{state.top.value} + page.rows - 1;
  return LineNo(std::max<std::int64_t>(0, std::min<std::int64_t>(bottom, std::int64_t{rows.Count()} - 1)));
}

std::int64_t RowsAway(ViewMove move, ViewPage page) {
  switch (move) {
    case ViewMove::kPageUp:
      return -PageRows(page);
    case ViewMove::kPageDown:
      return PageRows(page);
    default:
      return move == ViewMove::kUp ? -1 : 1;
  }
}

// Above the first row and below the last one there is no row; the caret stays in the one at the end.
LineNo RowAway(LineNo row, std::int64_t away, const ViewRows& rows) {
  std::int64_t last = std::max(rows.Count() - 1, 0);
  return LineNo(std::clamp<std::int64_t>(row.value + away, 0, last));
}

CellPos EndOf(LineNo row, ViewRows& rows) {
  return {row, ColumnNo(rows.Read(row).Columns())};
}

CellPos Sideways(CellPos caret, int columns, ViewRows& rows) {
  const ViewRow& row = rows.Read(caret.row);
  int target = std::max(caret.column.value + columns, 0);
  return {caret.row, ColumnNo(columns < 0 ? row.SnapBack(target) : row.SnapForward(target))};
}

// Where a move takes the caret that aims at a column.
CellPos Vertically(const ViewState& state, LineNo row, ViewRows& rows) {
  return {row, ColumnNo(rows.Read(row).SnapBack(state.wanted.value))};
}

CellPos Target(const ViewState& state, ViewKey key, ViewPage page, ViewRows& rows) {
  CellPos caret = state.Caret();
  switch (key.move) {
    case ViewMove::kTopOfWindow:
      return Vertically(state, std::min(state.top, RowAway(state.top, 0, rows)), rows);
    case ViewMove::kBottomOfWindow:
      return Vertically(state, BottomRow(state, page, rows), rows);
    case ViewMove::kRowStart:
      return {caret.row, ColumnNo(0)};
    case ViewMove::kRowEnd:
      return EndOf(caret.row, rows);
    case ViewMove::kFileStart:
      return {};
    case ViewMove::kFileEnd:
      return EndOf(LineNo(std::max(rows.Count() - 1, 0)), rows);
    case ViewMove::kLeft:
    case ViewMove::kRight:
      return Sideways(caret, key.move == ViewMove::kLeft ? -key.columns : key.columns, rows);
    default:
      return Vertically(state, RowAway(caret.row, RowsAway(key.move, page), rows), rows);
  }
}

bool KeepsWantedColumn(ViewMove move) {
  return move <= ViewMove::kBottomOfWindow || move == ViewMove::kUp || move == ViewMove::kDown;
}

}  // namespace

std::optional<ViewKey> FindViewKey(unsigned virtualKey, bool control) {
  for (const KeyRow& row : kKeys)
    if (row.virtualKey == virtualKey) return control ? row.withControl : row.plain;
  return std::nullopt;
}

ViewState Moved(const ViewState& state, ViewKey key, bool extend, ViewPage page, ViewRows& rows) {
  if (key.move == ViewMove::kScrollUp || key.move == ViewMove::kScrollDown)
    return ScrolledTo(state, state.top.value + (key.move == ViewMove::kScrollUp ? -1 : 1), page, rows);
  ViewState moved = state;
  moved.selection.caret = Target(state, key, page, rows);
  if (!extend) moved.selection.anchor = moved.selection.caret;
  if (!KeepsWantedColumn(key.move)) moved.wanted = moved.selection.caret.column;
  // The view goes with a page, so that the caret keeps its place in the window.
  if (key.move == ViewMove::kPageUp || key.move == ViewMove::kPageDown)
    moved = ScrolledTo(moved, state.top.value + RowsAway(key.move, page), page, rows);
  return ShowingCaret(moved, page, rows);
}

}  // namespace tarrow
