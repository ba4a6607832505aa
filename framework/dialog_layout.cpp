#include "framework/dialog_layout.h"

namespace tarrow {

void DialogLayout::Begin(HWND dialog, std::span<const DialogAnchor> anchors) {
  dialog_ = dialog;
  RECT client{}, window{};
  ::GetClientRect(dialog, &client);
  ::GetWindowRect(dialog, &window);
  client_ = {client.right, client.bottom};
  least_ = {window.right - window.left, window.bottom - window.top};
  items_.clear();
  for (const DialogAnchor& anchor : anchors) {
    RECT place{};
    ::GetWindowRect(::GetDlgItem(dialog, anchor.id), &place);
    ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    items_.push_back({anchor, place});
  }
}

void DialogLayout::Arrange(int width, int height) const {
  LONG wider = width - client_.cx, higher = height - client_.cy;
  HDWP moves = ::BeginDeferWindowPos(static_cast<int>(items_.size()));
  for (const auto& [anchor, place] : items_) {
    LONG left = place.left + (anchor.movesRight ? wider : 0),
         top = place.top + (anchor.movesDown ? higher : 0);
    LONG itemWidth = place.right - place.left + (anchor.growsWide ? wider : 0);
    LONG itemHeight = place.bottom - place.top + (anchor.growsHigh ? higher : 0);
    if (moves)
      moves = ::DeferWindowPos(moves, ::GetDlgItem(dialog_, anchor.id), nullptr, static_cast<int>(left),
                               static_cast<int>(top), static_cast<int>(itemWidth),
                               static_cast<int>(itemHeight), SWP_NOZORDER | SWP_NOACTIVATE);
  }
  if (moves) ::EndDeferWindowPos(moves);
}

void DialogLayout::Limit(MINMAXINFO& limits) const {
  if (least_.cx) limits.ptMinTrackSize = {least_.cx, least_.cy};
}

}  // namespace tarrow
