// The mouse: clicks, selecting by dragging, the wheel.
#include "edit/control/text_control.h"

#include "edit/control/caret_movement.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr UINT kDragPeriod = 50;  // milliseconds between two steps of scrolling beyond the edge

}  // namespace

// While the button is held, `anchor` stays selected: nothing for a click, a word for a double click.
void TextControl::BeginDrag(TextRange anchor) {
  drag_ = anchor;
  ::SetCapture(Handle());
  ::SetTimer(Handle(), kDragTimer, kDragPeriod, nullptr);
}

void TextControl::OnLButtonDown(UINT keys, POINT at) {
  if (!hasFocus_) ::SetFocus(Handle());
  BytePos position = PositionAt(at);
  MoveCaret(position, (keys & MK_SHIFT) != 0);
  BeginDrag({anchor_, anchor_});
}

void TextControl::OnLButtonDblClk(UINT, POINT at) {
  BytePos position = PositionAt(at);
  if (!hooks_ || !hooks_->OnDoubleClick(position)) Select(BlankDelimitedWord(View(), position));
  BeginDrag(Selection());
}

void TextControl::DragTo(POINT at) {
  BytePos position = PositionAt(at);
  BytePos anchor = position < drag_->start ? drag_->end : drag_->start;
  if (position >= drag_->start && position < drag_->end) position = drag_->end;
  if (anchor != anchor_ || position != caret_) Select(anchor, position);
}

void TextControl::OnMouseMove(UINT, POINT at) {
  RECT client = ClientRect();
  // Beyond the upper or lower edge the timer scrolls, at its own pace.
  if (drag_ && at.y >= 0 && at.y < client.bottom) DragTo(at);
}

void TextControl::OnTimer(UINT_PTR id) {
  if (id == kSettleTimer) return OnIdleTime();
  if (id != kDragTimer || !drag_) return;
  POINT at{};
  ::GetCursorPos(&at);
  ::ScreenToClient(Handle(), &at);
  RECT client = ClientRect();
  bool isOutside = at.y < 0 || at.y >= client.bottom || at.x < 0 || at.x >= client.right;
  if (isOutside) DragTo(at);
}

void TextControl::OnLButtonUp(UINT, POINT) {
  if (drag_) ::ReleaseCapture();
  PostCaretMoved();
}

LRESULT TextControl::OnCaptureChanged(WPARAM, LPARAM) {
  drag_.reset();
  ::KillTimer(Handle(), kDragTimer);
  return 0;
}

// The popup menu is the parent's.
void TextControl::OnRButtonDown(UINT keys, POINT at) {
  HWND parent = ::GetParent(Handle());
  ::MapWindowPoints(Handle(), parent, &at, 1);
  ::SendMessageW(parent, WM_RBUTTONDOWN, keys, MAKELPARAM(at.x, at.y));
}

void TextControl::OnMouseWheel(int delta, UINT keys, POINT screen) {
  if (keys & MK_SHIFT) return OnMouseHWheel(-delta, keys, screen);
  std::int64_t top = top_.value - wheel_.Steps(delta, Wheel::Lines(std::max(1, LinesInView() - 1)));
  std::int64_t lowest = std::max(LastTop(), top_).value;
  ScrollTo(LineNo(std::clamp<std::int64_t>(top, 0, lowest)), left_);
}

void TextControl::OnMouseHWheel(int delta, UINT, POINT) {
  int steps = wheelSideways_.Steps(delta, Wheel::Columns());
  for (int i = 0; i < std::abs(steps); ++i) OnHScroll(steps < 0 ? SB_LINELEFT : SB_LINERIGHT, 0, nullptr);
}

}  // namespace tarrow
