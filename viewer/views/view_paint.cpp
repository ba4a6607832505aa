#include "viewer/views/view_paint.h"

#include "edit/control/line_layout.h"

#include <algorithm>
#include <vector>

namespace tarrow {
namespace {

// Draws one row from the left edge to the right one.
class RowPainter {
 public:
  RowPainter(ViewSurface& surface, const ViewRow& row, ColumnNo left, CellSize cell, const PixelRect& area)
      : surface_(surface), row_(row), left_(left.value), cell_(cell), area_(area), x_(area.left) {}

  // The cells up to `column`.
  void DrawTo(int column, bool isSelected) {
    int right = std::min(XOf(column), area_.right);
    if (right <= x_) return;
    CellPiece piece = row_.Piece({ColumnAt(x_), ColumnBehind(right)});
    if (!piece.text.empty()) DrawPiece(piece, right, isSelected);
    Fill(right, isSelected);
  }

  void DrawRest() {
    DrawTo(row_.Columns(), false);
    Fill(area_.right, false);
  }

 private:
  int XOf(int column) const { return area_.left + (column - left_) * cell_.width; }
  int ColumnAt(int x) const { return left_ + (x - area_.left) / cell_.width; }
  // A column that the right edge cuts is drawn as far as it is in view.
  int ColumnBehind(int x) const { return left_ + (x - area_.left + cell_.width - 1) / cell_.width; }

  void DrawPiece(const CellPiece& piece, int right, bool isSelected) {
    Fill(XOf(piece.column), isSelected);
    std::size_t unit = 0;
    int column = piece.column;
    while (unit < piece.text.size()) {
      std::size_t end = RunEnd(piece, unit);
      column += Advance(piece, unit, end);
      Draw(std::min(XOf(column), right), piece.text.substr(unit, end - unit), isSelected);
      unit = end;
    }
  }

  // Sets the widths of the units of a run; returns how many cells it takes.
  int Advance(const CellPiece& piece, std::size_t unit, std::size_t end) {
    int cells = 0;
    advances_.assign(end - unit, cell_.width);
    if (piece.cells.empty()) return static_cast<int>(end - unit);
    for (std::size_t i = unit; i < end; cells += piece.cells[i++]) advances_[i - unit] *= piece.cells[i];
    return cells;
  }

  // Where the run of characters that begins at `unit` ends: one of a script that is written from right to
  // left is a run by itself with the marks upon it, so that the order on the screen stays that of the text.
  static std::size_t RunEnd(const CellPiece& piece, std::size_t unit) {
    if (!piece.mayTurn) return piece.text.size();
    bool isAlone = IsRightToLeft(piece.text[unit]);
    std::size_t end = unit + 1;
    while (end < piece.text.size() &&
           (piece.CellsOf(end) == 0 || (!isAlone && !IsRightToLeft(piece.text[end]))))
      ++end;
    return end;
  }

  void Draw(int right, std::u16string_view text, bool isSelected) {
    if (right <= x_) return;
    surface_.Draw({x_, area_.top, right, area_.bottom}, text, advances_, isSelected);
    x_ = right;
  }

  void Fill(int right, bool isSelected) {
    advances_.clear();
    Draw(right, {}, isSelected);
  }

  ViewSurface& surface_;
  const ViewRow& row_;
  int left_;
  CellSize cell_;
  PixelRect area_;
  int x_;
  std::vector<int> advances_;
};

// The marks come first: asking for them may read the row, too.
void PaintRow(ViewSurface& surface, ViewRows& rows, LineNo number, const ViewState& state, CellSize cell,
              const PixelRect& area) {
  RowMarks marks = rows.MarksOf(number, state.selection);
  RowPainter painter(surface, rows.Read(number), state.left, cell, area);
  for (const ColumnSpan& mark : marks) {
    if (mark.Empty()) continue;
    painter.DrawTo(mark.from, false);
    painter.DrawTo(mark.to, true);
  }
  painter.DrawRest();
}

}  // namespace

void PaintView(ViewSurface& surface, ViewRows& rows, const ViewState& state, CellSize cell,
               const PixelRect& client, int from, int to) {
  std::int64_t inView = std::min<std::int64_t>((client.bottom - client.top) / cell.height,
                                               std::int64_t{rows.Count()} - state.top.value);
  for (std::int64_t i = 0; i < inView; ++i) {
    int top = client.top + static_cast<int>(i) * cell.height;
    if (top + cell.height <= from || top >= to) continue;
    PaintRow(surface, rows, state.top + i, state, cell, {client.left, top, client.right, top + cell.height});
  }
  int rest = client.top + static_cast<int>(std::max<std::int64_t>(inView, 0)) * cell.height;
  if (rest < to) PaintEmpty(surface, {client.left, rest, client.right, client.bottom});
}

void PaintEmpty(ViewSurface& surface, const PixelRect& client) {
  if (client.left < client.right && client.top < client.bottom) surface.Draw(client, {}, {}, false);
}

}  // namespace tarrow
