// What a dialog does that stands while the program works and lets the user end the work.
//
// Meanwhile the program's other windows are disabled and only painted, so that nothing changes under the
// work.
#pragma once

#include <windows.h>

#include <vector>

namespace tarrow {

// The thread's other windows, disabled until the end of the scope.
class OtherWindowsDisabled {
 public:
  explicit OtherWindowsDisabled(HWND dialog);
  ~OtherWindowsDisabled();
  OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
  OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
  static BOOL CALLBACK Disable(HWND window, LPARAM object) noexcept;

  HWND dialog_;
  std::vector<HWND> disabled_;
};

// Deals with all messages that have come for the dialog, and paints the other windows.
void DispatchForDialog(HWND dialog);

}  // namespace tarrow
