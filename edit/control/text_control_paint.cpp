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

void TextControl::PaintNow(LineNo line) {
  RECT client = ClientRect();
  Pixels y = (Pixels{line.value} - top_.value) * font_->LineHeight();
  if (y < 0 || y >= client.bottom) return;
  ClientDc dc(Handle());
  SelectedObject font(dc, font_->Font());
  auto top = static_cast<LONG>(y);
  PaintLine(dc, line, {client.left, top, client.right, top + font_->LineHeight()});
}

void TextControl::PaintLine(HDC dc, LineNo line, const RECT& row) {
  TextView view = View();
  LineLayout layout = LayoutOf(view, line);
  TextRange range = buffer_.LineRange(line), selection = ShowsSelection() ? Selection() : TextRange{};
  auto isSelected = [&](BytePos at) { return selection.start <= at && at < selection.end; };
  RECT cell = row;
  cell.right = cell.left;
  // A character beyond either edge may reach over it by a pixel.
  Pixels more = font_->AverageWidth();
  // A cut changes how glyphs run into one another, so a caret alone makes none.
  std::vector<BytePos> cuts;
  if (!selection.Empty()) cuts = {selection.start, selection.end};
  auto pieces = layout.Pieces(left_ - more, left_ + row.right + more, cuts);
  for (const LinePiece& piece : pieces) {
    cell.left = static_cast<LONG>(piece.x - left_);
    cell.right = static_cast<LONG>(piece.x + piece.width - left_);
    UseColours(dc, isSelected(piece.range.start));
    ::ExtTextOutW(dc, cell.left, cell.top, ETO_OPAQUE | ETO_CLIPPED, &cell,
                  reinterpret_cast<const wchar_t*>(piece.text.data()), static_cast<UINT>(piece.text.size()),
                  piece.advances.data());
  }
  if (!pieces.empty()) widest_ = std::max(widest_, cell.right + left_);
  // A selected line end shows as a cell of its own.
  bool endIsInView = !pieces.empty() || left_ == 0;
  bool endIsSelected = endIsInView && range.end < buffer_.End() && isSelected(range.end);
  RECT end{cell.right, row.top, cell.right + (endIsSelected ? font_->AverageWidth() : 0), row.bottom};
  UseColours(dc, true);
  Fill(dc, end);
  UseColours(dc, false);
  Fill(dc, {end.right, row.top, row.right, row.bottom});
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
