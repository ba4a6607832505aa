#include "shell/frame/frame_wait.h"

namespace tarrow {

void FrameWait::BeginWait(bool hideWindows) {
  if (waits_.empty()) cursorBefore_ = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
  waits_.push_back(hideWindows);
  if (!hideWindows || hidingWaits_++ > 0) return;
  frame_.HideChildren();
  selector_.SetUpdating(false);
}

void FrameWait::EndWait() {
  bool hid = waits_.back();
  waits_.pop_back();
  if (hid && --hidingWaits_ == 0) {
    frame_.ShowChildren();
    selector_.SetUpdating(true);
  }
  if (waits_.empty()) ::SetCursor(cursorBefore_);
}

}  // namespace tarrow
