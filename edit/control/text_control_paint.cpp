// Painting: each line of the view is drawn once, opaque, piece by piece, so nothing is erased and nothing
// flickers; only the lines that a change has touched are drawn at all.
#include "edit/control/text_control.h"

#include "edit/control/caret_movement.h"
#include "framework/handle.h"

#include <algorithm>

namespace tarrow {
namespace {

void Fill(HDC dc, const RECT& area) {
  if (area.left < area.right) ::ExtTextOutW(dc, area.left, area.top, ETO_OPAQUE, &area, nullptr, 0, nullptr);
}

void UseColours(HDC dc, bool selected) {
  ::SetTextColor(dc, ::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  ::SetBkColor(dc, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
}

// Where pieces of a line end: at the ends of the selection, and where one style follows another. A cut
// changes how glyphs run into one another, so a caret alone makes none.
std::vector<BytePos> CutsOf(TextRange selection, BytePos lineStart, const StyleRuns* runs) {
  std::vector<BytePos> cuts;
  if (runs)
    for (const StyleRun& run : *runs) cuts.push_back(lineStart + run.end);
  if (selection.Empty()) return cuts;
  for (BytePos end : {selection.start, selection.end}) cuts.insert(std::ranges::lower_bound(cuts, end), end);
  return cuts;
}

}  // namespace

LineLayout TextControl::LayoutOf(const TextView& view, LineNo line) const {
  return {view, buffer_.LineRange(line), charset_, *font_, tabs_, &checkpoints_};
}

Pixels TextControl::XOf(BytePos at) const {
  TextView view = View();
  return LayoutOf(view, buffer_.LineOf(at)).XOf(at);
}

BytePos TextControl::PositionAt(POINT client) const {
  // A point above the first line belongs to the line above it, whatever the direction in which C++ divides.
  int height = font_->LineHeight();
  LONG row = client.y >= 0 ? client.y / height : -((-client.y + height - 1) / height);
  TextView view = View();
  LineNo line = LineAway(buffer_, top_, row);
  return charset_.Snap(view, LayoutOf(view, line).Nearest(client.x + left_));
}

POINT TextControl::PointOf(BytePos at) const {
  constexpr Pixels kFar = 32000;  // what does not fit into a message stands far outside the window
  Pixels y = (Pixels{buffer_.LineOf(at).value} - top_.value) * font_->LineHeight();
  return {static_cast<LONG>(std::clamp(XOf(at) - left_, -kFar, kFar)),
          static_cast<LONG>(std::clamp(y, -kFar, kFar))};
}

bool TextControl::ShowsSelection() const {
  return hasFocus_ || (::GetWindowLongW(Handle(), GWL_STYLE) & ES_NOHIDESEL) != 0;
}

void TextControl::OnPaint() {
  SettleView();
  drawn_.pieces.clear();
  PaintDc dc(Handle());
  SelectedObject font(dc, font_->Font());
  RECT client = ClientRect();
  int height = font_->LineHeight();
  Pixels widest = widest_;
  LONG y = dc.Area().top / height * height;
  for (; y < dc.Area().bottom; y += height) {
    LineNo line(top_.value + std::int64_t{y} / height);
    if (line > buffer_.LastLine()) break;
    PaintLine(dc, line, {client.left, y, client.right, y + height});
  }
  UseColours(dc, false);
  Fill(dc, {client.left, y, client.right, std::max(y, client.bottom)});
  if (widest_ != widest) UpdateScrollBars();
}

void TextControl::PaintLine(HDC dc, LineNo line, const RECT& row) {
  std::vector<LinePiece> pieces = PiecesOf(line, row);
  DrawPieces(dc, pieces, row);
  FillBehind(dc, line, pieces, row);
}

// After a key: of what the row shows already nothing is drawn again.
void TextControl::PaintNow(LineNo line) {
  RECT client = ClientRect();
  Pixels y = (Pixels{line.value} - top_.value) * font_->LineHeight();
  if (y < 0 || y >= client.bottom) return;
  ClientDc dc(Handle());
  SelectedObject font(dc, font_->Font());
  auto top = static_cast<LONG>(y);
  RECT row{client.left, top, client.right, top + font_->LineHeight()};
  std::vector<LinePiece> pieces = PiecesOf(line, row);
  RowChange change = MoveWhatIsThere(dc, pieces, row);
  DrawPieces(dc, std::span(pieces).subspan(change.same, pieces.size() - change.same - change.moved), row);
  FillBehind(dc, line, pieces, row);
  if (ShownSelection().Empty())
    drawn_ = {y, left_, std::move(pieces)};
  else
    drawn_.pieces.clear();
}

// The pieces of a line that are in view, each with its style.
std::vector<LinePiece> TextControl::PiecesOf(LineNo line, const RECT& row) {
  TextView view = View();
  BytePos start = buffer_.LineStart(line);
  // A character beyond either edge may reach over it by a pixel.
  Pixels more = font_->AverageWidth();
  const StyleRuns* runs = colouring_.IsOn() ? &colouring_.States().RunsOf(buffer_, line) : nullptr;
  std::vector<BytePos> cuts = CutsOf(ShownSelection(), start, runs);
  std::vector<LinePiece> pieces = LayoutOf(view, line).Pieces(left_ - more, left_ + row.right + more, cuts);
  if (!runs) return pieces;
  const StyleRun* run = runs->begin();
  for (LinePiece& piece : pieces) {
    while (run->end <= piece.range.start - start) ++run;
    piece.style = run->style;
  }
  return pieces;
}

void TextControl::DrawPieces(HDC dc, std::span<const LinePiece> pieces, const RECT& row) {
  TextRange selection = ShownSelection();
  for (const LinePiece& piece : pieces) {
    RECT cell{static_cast<LONG>(piece.x - left_), row.top, static_cast<LONG>(piece.x + piece.width - left_),
              row.bottom};
    bool isSelected = selection.start <= piece.range.start && piece.range.start < selection.end;
    UseColours(dc, isSelected);
    if (colouring_.IsOn()) colouring_.Select(dc, piece.style, isSelected);
    ::ExtTextOutW(dc, cell.left, cell.top, ETO_OPAQUE | ETO_CLIPPED, &cell,
                  reinterpret_cast<const wchar_t*>(piece.text.data()), static_cast<UINT>(piece.text.size()),
                  piece.advances.data());
  }
}

// A selected line end shows as a cell of its own.
void TextControl::FillBehind(HDC dc, LineNo line, std::span<const LinePiece> pieces, const RECT& row) {
  TextRange selection = ShownSelection();
  BytePos lineEnd = buffer_.LineRange(line).end;
  LONG behind = row.left;
  if (!pieces.empty()) {
    Pixels right = pieces.back().x + pieces.back().width;
    behind = static_cast<LONG>(right - left_);
    widest_ = std::max(widest_, right);
  }
  bool endIsInView = !pieces.empty() || left_ == 0;
  bool isSelected = selection.start <= lineEnd && lineEnd < selection.end;
  bool endIsSelected = endIsInView && lineEnd < buffer_.End() && isSelected;
  RECT end{behind, row.top, behind + (endIsSelected ? font_->AverageWidth() : 0), row.bottom};
  UseColours(dc, true);
  Fill(dc, end);
  UseColours(dc, false);
  Fill(dc, {end.right, row.top, row.right, row.bottom});
}

// Moves what the row shows of `pieces` to where they are to be; what it returns need not be drawn. Nothing is
// moved that is covered by another window, or waits to be drawn.
RowChange TextControl::MoveWhatIsThere(HDC dc, std::span<const LinePiece> pieces, const RECT& row) const {
  if (drawn_.y != row.top || drawn_.left != left_ || !ShownSelection().Empty()) return {};
  RowChange change = CompareRows(drawn_.pieces, pieces, left_, left_ + row.right);
  if (change.moved == 0 || change.by == 0) return change;
  RECT seen{};
  bool isWhole = ::GetClipBox(dc, &seen) == SIMPLEREGION && seen.left <= row.left && seen.top <= row.top &&
                 row.right <= seen.right && row.bottom <= seen.bottom;
  if (!isWhole || ::GetUpdateRect(Handle(), nullptr, FALSE)) {
    change.moved = 0;
    return change;
  }
  const LinePiece& first = pieces[pieces.size() - change.moved];
  auto to = static_cast<int>(first.x - left_),
       width = static_cast<int>(pieces.back().x + pieces.back().width - first.x);
  ::BitBlt(dc, to, row.top, width, row.bottom - row.top, dc, to - static_cast<int>(change.by), row.top,
           SRCCOPY);
  return change;
}

void TextControl::InvalidateLines(LineNo first, LineNo last) const {
  RECT area = ClientRect();
  int height = font_->LineHeight();
  std::int64_t rows = area.bottom / height + 1;
  auto rowOf = [&](LineNo line) {
    return std::clamp<std::int64_t>(std::int64_t{line.value} - top_.value, -1, rows);
  };
  area.top = static_cast<LONG>(rowOf(first) * height);
  area.bottom = static_cast<LONG>((rowOf(last) + 1) * height);
  Invalidate(&area);
}

void TextControl::InvalidateFrom(LineNo first) const {
  InvalidateLines(first, LineNo(std::int64_t{top_.value} + LinesInView() + 1));
}

// The lines on which the two selections differ.
void TextControl::InvalidateSelectionChange(TextRange before, TextRange after) const {
  auto invalidate = [&](BytePos a, BytePos b) {
    if (a != b) InvalidateLines(buffer_.LineOf(std::min(a, b)), buffer_.LineOf(std::max(a, b)));
  };
  if (before.Empty() || after.Empty()) {
    invalidate(before.start, before.end);
    invalidate(after.start, after.end);
  } else {
    invalidate(before.start, after.start);
    invalidate(before.end, after.end);
  }
}

}  // namespace tarrow
