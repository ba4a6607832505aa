// What part of the text is in view: scrolling by bars, wheel and program, the bars themselves, the caret.
//
// The view is a top line and a distance in pixels from the left edge of the text. The vertical bar counts
// lines, in 32 bits; the horizontal one columns of average width. It spans the widest line that has been in
// view so far: the width of the widest line of all would cost a look at the whole text.
#include "edit/control/text_control.h"

#include "edit/control/caret_movement.h"

#include <algorithm>

namespace tarrow {
namespace {

// Sets a bar only where something differs, for that draws it, and never one that the window does not have,
// for that would show it. The system keeps page and position within the range, so they are put there first: a
// text shorter than the window would differ with every key.
void SetBar(HWND window, int bar, LONG style, std::int64_t last, std::int64_t page, std::int64_t position) {
  if (!(::GetWindowLongW(window, GWL_STYLE) & style)) return;
  page = std::min(page, last + 1);
  position = std::min(position, last + 1 - page);
  SCROLLINFO old{}, info{};
  old.cbSize = info.cbSize = sizeof info;
  old.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.fMask = old.fMask | SIF_DISABLENOSCROLL;
  info.nMax = static_cast<int>(last);
  info.nPage = static_cast<UINT>(page);
  info.nPos = static_cast<int>(position);
  bool isKnown = ::GetScrollInfo(window, bar, &old) != 0;
  if (isKnown && old.nMax == info.nMax && old.nPage == info.nPage && old.nPos == info.nPos) return;
  ::SetScrollInfo(window, bar, &info, TRUE);
}

}  // namespace

int TextControl::LinesInView() const {
  return std::max<int>(1, static_cast<int>(ClientRect().bottom) / font_->LineHeight());
}

// The top line at which the last line stands at the bottom: as far as a user's scrolling goes.
LineNo TextControl::LastTop() const {
  return LineNo(std::max<std::int64_t>(0, std::int64_t{buffer_.LineCount().value} - LinesInView()));
}

void TextControl::ScrollTo(LineNo top, Pixels left) {
  top = std::clamp(top, LineNo(0), buffer_.LastLine());
  left = std::max<Pixels>(left, 0);
  std::int64_t down = (std::int64_t{top_.value} - top.value) * font_->LineHeight(), across = left_ - left;
  if (down == 0 && across == 0) return;
  top_ = top;
  left_ = left;
  drawn_.pieces.clear();
  RECT client = ClientRect();
  if (std::abs(down) < client.bottom && std::abs(across) < client.right)
    ::ScrollWindowEx(Handle(), static_cast<int>(across), static_cast<int>(down), nullptr, nullptr, nullptr,
                     nullptr, SW_INVALIDATE);
  else
    Invalidate();
  UpdateScrollBars();
  PlaceCaret();
  if (across) Notify(EN_HSCROLL);
  if (down) Notify(EN_VSCROLL);
}

void TextControl::ScrollBy(std::int64_t columns, std::int64_t lines) {
  LineNo top = LineAway(buffer_, top_, lines);
  Pixels farthest = std::max(left_, widest_), left = left_ + columns * font_->AverageWidth();
  ScrollTo(top, columns > 0 ? std::min(left, farthest) : left);
}

void TextControl::ScrollCaret() {
  MakeVisible(caret_);
}

// Scrolls as little as needed up or down, but a third of the width sideways, so that typing at the edge does
// not scroll with every key.
void TextControl::MakeVisible(BytePos at) {
  LineNo line = buffer_.LineOf(at), top = std::min(top_, line);
  top = std::max(top, LineAway(buffer_, line, 1 - LinesInView()));
  Pixels x = XOf(at), width = ClientRect().right, left = left_;
  widest_ = std::max(widest_, x);
  if (x < left)
    left = x - width / 3;
  else if (x + 1 >= left + width && width > 0)
    left = x - width + width / 3;
  left = std::max<Pixels>(0, left / font_->AverageWidth() * font_->AverageWidth());
  if (width > 0) ScrollTo(top, left);
}

void TextControl::UpdateScrollBars() {
  RECT client = ClientRect();
  int column = font_->AverageWidth();
  SetBar(Handle(), SB_VERT, WS_VSCROLL, buffer_.LastLine().value, LinesInView(), top_.value);
  std::int64_t page = std::max<std::int64_t>(1, client.right / column);
  SetBar(Handle(), SB_HORZ, WS_HSCROLL, std::max(widest_, left_ + client.right) / column, page,
         left_ / column);
}

void TextControl::PlaceCaret() {
  if (!hasFocus_) return;
  POINT at = PointOf(caret_);
  ::SetCaretPos(at.x, at.y);
}

std::int64_t TextControl::TrackPosition(int bar) const {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  ::GetScrollInfo(Handle(), bar, &info);
  return info.nTrackPos;
}

void TextControl::OnSize(UINT, int, int) {
  UpdateScrollBars();
  PlaceCaret();
}

LRESULT TextControl::OnStyleChanged(WPARAM, LPARAM) {
  UpdateScrollBars();
  return 0;
}

void TextControl::OnVScroll(UINT code, UINT, HWND) {
  std::int64_t page = std::max(1, LinesInView() - 1), top = top_.value;
  switch (code) {
    case SB_LINEUP:
      top -= 1;
      break;
    case SB_LINEDOWN:
      top += 1;
      break;
    case SB_PAGEUP:
      top -= page;
      break;
    case SB_PAGEDOWN:
      top += page;
      break;
    case SB_TOP:
      top = 0;
      break;
    case SB_BOTTOM:
      top = LastTop().value;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      top = TrackPosition(SB_VERT);
      break;
    default:
      return;
  }
  // A view that stands beyond the last page already, as a program may put it, is not pulled back by a step
  // down.
  std::int64_t lowest = std::max<std::int64_t>(LastTop().value, std::min<std::int64_t>(top_.value, top));
  ScrollTo(LineNo(std::clamp<std::int64_t>(top, 0, lowest)), left_);
}

void TextControl::OnHScroll(UINT code, UINT, HWND) {
  Pixels width = ClientRect().right, column = font_->AverageWidth(), left = left_;
  switch (code) {
    case SB_LINELEFT:
      left -= column;
      break;
    case SB_LINERIGHT:
      left += column;
      break;
    case SB_PAGELEFT:
      left -= width * 2 / 3;
      break;
    case SB_PAGERIGHT:
      left += width * 2 / 3;
      break;
    case SB_LEFT:
      left = 0;
      break;
    case SB_RIGHT:
      left = widest_;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      left = TrackPosition(SB_HORZ) * column;
      break;
    default:
      return;
  }
  Pixels farthest = std::max({Pixels{0}, widest_ + column - width, std::min(left_, left)});
  ScrollTo(top_, std::clamp<Pixels>(left, 0, farthest));
}

}  // namespace tarrow
