// FrameWait: the hourglass of the program, and its document windows hidden while many of them change.
#pragma once

#include "framework/mdi.h"
#include "ui/program/wait_state.h"
#include "ui/selector/window_selector.h"

#include <windows.h>

#include <vector>

namespace tarrow {

class FrameWait final : public Waiting {
 public:
  // Both outlive the object. While the windows are hidden the selector does not follow them.
  FrameWait(CMDIFrameWnd& frame, CWinSelector& selector) : frame_(frame), selector_(selector) {}

  void BeginWait(bool hideWindows) override;
  void EndWait() override;

 private:
  CMDIFrameWnd& frame_;
  CWinSelector& selector_;
  HCURSOR cursorBefore_ = nullptr;
  std::vector<bool> waits_;  // of each wait that has begun: whether it hides the windows
  int hidingWaits_ = 0;
};

}  // namespace tarrow
