// A window that takes no input for as long as the object lives.
#pragma once

#include <windows.h>

namespace tarrow {

class DisabledWindow {
 public:
  explicit DisabledWindow(HWND window) : window_(::EnableWindow(window, FALSE) ? nullptr : window) {}
  ~DisabledWindow() {
    if (window_) ::EnableWindow(window_, TRUE);
  }
  DisabledWindow(const DisabledWindow&) = delete;
  DisabledWindow& operator=(const DisabledWindow&) = delete;

 private:
  HWND window_;  // null: it was disabled before, and stays so
};

}  // namespace tarrow
