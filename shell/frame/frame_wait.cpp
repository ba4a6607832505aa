#include "shell/frame/frame_wait.h"

namespace tarrow {

void FrameWait::BeginWait(bool hideWindows) {
  if (waits_.empty()) cursorBefore_ = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  waits_.push_back(hideWindows);
  if (!hideWindows || hidingWaits_++ > 0) return;
  ::ShowWindow(frame_.Client(), SW_HIDE);
  selector_.SetUpdating(false);
}

void FrameWait::EndWait() {
  bool hid = waits_.back();
  waits_.pop_back();
  if (hid && --hidingWaits_ == 0) {
    ShowWindows();
    selector_.SetUpdating(true);
  }
  if (waits_.empty()) ::SetCursor(cursorBefore_);
}

// While it is hidden the client window does not notice that a maximised child needs none of its scroll bars.
void FrameWait::ShowWindows() {
  if (frame_.ActiveChildIsMaximised()) ::ShowScrollBar(frame_.Client(), SB_BOTH, FALSE);
  ::ShowWindow(frame_.Client(), SW_SHOW);
  frame_.RefreshTitle();
  if (CMDIChildWnd* active = frame_.ActiveChild()) ::SetFocus(active->Handle());
  ::UpdateWindow(frame_.Client());
}

}  // namespace tarrow
