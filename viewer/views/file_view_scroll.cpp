// Keys and scroll bars of a view, and what a new state asks of the window.
#include "viewer/views/file_view.h"

#include "viewer/views/scroll_scale.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

bool IsDown(int key) {
  return ::GetKeyState(key) < 0;
}

// Sets a bar only where something differs, for that draws it, and never one that the window does not have,
// for that would show it.
void SetBar(HWND window, int bar, int last, int position) {
  LONG style = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
  if (!(::GetWindowLongW(window, GWL_STYLE) & style)) return;
  SCROLLINFO old{}, info{};
  old.cbSize = info.cbSize = sizeof info;
  old.fMask = info.fMask = SIF_RANGE | SIF_POS;
  info.nMax = last;
  info.nPos = position;
  bool isKnown = ::GetScrollInfo(window, bar, &old) != 0;
  if (isKnown && old.nMax == last && old.nPos == position) return;
  info.fMask |= SIF_DISABLENOSCROLL;
  ::SetScrollInfo(window, bar, &info, TRUE);
}

int TrackPosition(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  ::GetScrollInfo(window, bar, &info);
  return info.nTrackPos;
}

}  // namespace

void CFileView::OnKeyDown(UINT key, LPARAM) {
  std::optional<ViewKey> found = FindViewKey(key, IsDown(VK_CONTROL));
  if (found)
    Send(static_cast<UINT>(found->move), static_cast<WPARAM>(found->columns), IsDown(VK_SHIFT));
  else
    Default();
}

void CFileView::MoveBy(ViewKey key, bool extend) {
  key.columns = std::max(key.columns, 1);
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return Moved(state, key, extend, page, rows);
  });
}

void CFileView::OnVScroll(UINT code, UINT, HWND) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    std::int64_t pageRows = std::max(page.rows - 1, 1), top = state.top.value;
    switch (code) {
      case SB_LINEUP:
        return ScrolledTo(state, top - 1, page, rows);
      case SB_LINEDOWN:
        return ScrolledTo(state, top + 1, page, rows);
      case SB_PAGEUP:
        return ScrolledTo(state, top - pageRows, page, rows);
      case SB_PAGEDOWN:
        return ScrolledTo(state, top + pageRows, page, rows);
      case SB_TOP:
        return ScrolledTo(state, 0, page, rows);
      case SB_BOTTOM:
        return ScrolledTo(state, rows.Count(), page, rows);
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION:
        return ScrolledTo(state, RowAtPosition(rows.Count(), TrackPosition(Handle(), SB_VERT)).value, page,
                          rows);
      default:
        return state;
    }
  });
}

void CFileView::OnHScroll(UINT code, UINT, HWND) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    std::int64_t left = state.left.value;
    switch (code) {
      case SB_LINELEFT:
        return ScrolledSideways(state, left - 1, rows);
      case SB_LINERIGHT:
        return ScrolledSideways(state, left + 1, rows);
      case SB_PAGELEFT:
        return ScrolledSideways(state, left - page.columns, rows);
      case SB_PAGERIGHT:
        return ScrolledSideways(state, left + page.columns, rows);
      case SB_LEFT:
        return ScrolledSideways(state, 0, rows);
      case SB_RIGHT:
        return ScrolledSideways(state, rows.Longest(), rows);
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION:
        return ScrolledSideways(state, TrackPosition(Handle(), SB_HORZ), rows);
      default:
        return state;
    }
  });
}

// What is to be drawn is only noted here; it is drawn from the file as it is then.
void CFileView::Show(const ViewState& state) {
  if (state == state_) return;
  ViewState before = std::exchange(state_, state);
  InvalidateChange(before);
  UpdateScrollBars();
  PlaceCaret();
  if (before.Caret() != state_.Caret()) PublishCaret();
}

void CFileView::InvalidateChange(const ViewState& before) {
  if (before.top != state_.top || before.left != state_.left) return Invalidate();
  const CellSelection &was = before.selection, &is = state_.selection;
  if (was == is || (was.Empty() && is.Empty())) return;
  if (was.anchor == is.anchor)
    return InvalidateRows(std::min(was.caret, is.caret).row, std::max(was.caret, is.caret).row);
  InvalidateRows(was.Start().row, was.End().row);
  InvalidateRows(is.Start().row, is.End().row);
}

void CFileView::InvalidateRows(LineNo first, LineNo last) {
  RECT area = RectOfRows(first, last);
  Invalidate(&area);
}

// What is in view of some rows.
RECT CFileView::RectOfRows(LineNo first, LineNo last) const {
  RECT area = ClientRect();
  auto rowInView = [&](std::int64_t row) {
    return std::clamp<std::int64_t>(row - state_.top.value, 0, page_.rows + 1);
  };
  area.top = static_cast<LONG>(rowInView(first.value) * cell_.height);
  area.bottom = static_cast<LONG>(rowInView(std::int64_t{last.value} + 1) * cell_.height);
  return area;
}

void CFileView::UpdateScrollBars() {
  ViewRows* rows = Rows();
  if (!rows || ::IsIconic(Handle())) return;
  SetBar(Handle(), SB_VERT, kScrollRange, ScrollPosition(rows->Count(), state_.top));
  SetBar(Handle(), SB_HORZ, rows->Longest(), std::min(state_.left.value, rows->Longest()));
}

// Out of view the caret stands where it cannot be seen.
void CFileView::PlaceCaret() {
  if (!hasFocus_) return;
  CellPos caret = state_.Caret();
  if (IsCaretInView(state_, page_))
    ::SetCaretPos((caret.column - state_.left) * cell_.width, (caret.row - state_.top) * cell_.height);
  else
    ::SetCaretPos(-cell_.width, -cell_.height);
}

void CFileView::PublishCaret() {
  if (!IsActive()) return;
  if (::IsIconic(Handle())) return Program().status.PublishCaret(0, 0);
  Program().status.PublishCaret(state_.Caret().row.value + 1, state_.Caret().column.value + 1);
}

// A view is read-only whatever its bits say, and neither typed into nor indented.
void CFileView::PublishState() {
  Program().status.PublishIndicator(Indicator::kInsertMode, InsertModeState(0));
  Program().status.PublishIndicator(Indicator::kEditMode, EditModeState(kReadOnly));
  Program().status.PublishIndicator(Indicator::kModification, ModificationState(0));
  Program().status.PublishIndicator(Indicator::kIndentation, IndentationState(0));
  PublishCaret();
}

}  // namespace tarrow
