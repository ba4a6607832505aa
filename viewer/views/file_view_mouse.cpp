// The mouse in a view: placing the caret, selecting, the wheel.
#include "viewer/views/file_view.h"

#include "viewer/views/view_timers.h"

#include <algorithm>
#include <cstdlib>

namespace tarrow {
namespace {

constexpr UINT kDragPeriod = 50;  // milliseconds between two steps of scrolling beyond the edge

// The cell at a distance from the edge, whatever the direction in which C++ divides.
std::int64_t CellsAway(LONG pixels, int size) {
  return pixels >= 0 ? pixels / size : -((-pixels + size - 1) / size);
}

}  // namespace

CellPos CFileView::CellAt(POINT client) const {
  std::int64_t row = state_.top.value + CellsAway(client.y, cell_.height);
  std::int64_t column = state_.left.value + CellsAway(client.x, cell_.width);
  constexpr std::int64_t kFarthest = 0x7FFFFFFF;
  return {LineNo(std::min(row, kFarthest)), ColumnNo(column)};
}

void CFileView::OnLButtonDown(UINT keys, POINT client) {
  if (!hasFocus_) ::SetFocus(Handle());
  bool extend = (keys & MK_SHIFT) != 0;
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return ShowingCaret(WithCaretAt(state, CellAt(client), extend, rows), page, rows);
  });
  if (!Rows()) return;
  isDragging_ = true;
  ::SetCapture(Handle());
  ::SetTimer(Handle(), kDragTimer, kDragPeriod, nullptr);
}

void CFileView::OnLButtonDblClk(UINT, POINT client) {
  Change([&](ViewState state, ViewPage page, ViewRows& rows) {
    state = WithCaretAt(state, CellAt(client), false, rows);
    state.selection = rows.WordAt(state.Caret());
    state.wanted = state.Caret().column;
    return ShowingCaret(state, page, rows);
  });
}

void CFileView::OnMouseMove(UINT, POINT client) {
  RECT area = ClientRect();
  if (isDragging_ && ::PtInRect(&area, client)) DragTo(client);
}

void CFileView::DragTo(POINT client) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return ShowingCaret(WithCaretAt(state, CellAt(client), true, rows), page, rows);
  });
}

// Beyond the edge the view scrolls for as long as the button is held: the farther away, the faster.
void CFileView::DragOn() {
  POINT at{};
  ::GetCursorPos(&at);
  ::ScreenToClient(Handle(), &at);
  RECT area = ClientRect();
  if (isDragging_ && !::PtInRect(&area, at)) DragTo(at);
}

void CFileView::OnLButtonUp(UINT, POINT) {
  if (isDragging_) ::ReleaseCapture();
}

LRESULT CFileView::OnCaptureChanged(WPARAM, LPARAM) {
  isDragging_ = false;
  ::KillTimer(Handle(), kDragTimer);
  return Default();
}

void CFileView::OnMouseWheel(int delta, UINT keys, POINT screen) {
  if (keys & MK_SHIFT) return OnMouseHWheel(-delta, keys, screen);
  int steps = wheel_.Steps(delta, Wheel::Lines(std::max(1, page_.rows - 1)));
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return ScrolledTo(state, std::int64_t{state.top.value} - steps, page, rows);
  });
}

void CFileView::OnMouseHWheel(int delta, UINT, POINT) {
  int steps = wheelSideways_.Steps(delta, Wheel::Columns());
  Change([&](const ViewState& state, ViewPage, ViewRows& rows) {
    return ScrolledSideways(state, std::int64_t{state.left.value} + steps, rows);
  });
}

}  // namespace tarrow
