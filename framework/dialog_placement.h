// Where dialogs stand: over the window that owns them, not in the middle of the screen.
//
// The system puts its own boxes, and dialogs without a place, where it likes. While a DialogPlacement lives,
// every dialog of the thread, ours, the system's and message boxes alike, is moved over the middle of its
// owner when it is about to be activated for the first time, unless it has been placed already.
#pragma once

#include <windows.h>

namespace tarrow {

// `window`, in screen pixels, moved over the middle of `owner` and kept within `work`.
[[nodiscard]] RECT PlaceOver(const RECT& window, const RECT& owner, const RECT& work);

// The part of the screen that `window` stands on and that dialogs may use.
[[nodiscard]] RECT WorkAreaAt(const RECT& window);

// Says that a dialog has a place of its own.
void KeepPlace(HWND dialog);

class DialogPlacement {
 public:
  DialogPlacement();
  ~DialogPlacement();
  DialogPlacement(const DialogPlacement&) = delete;
  DialogPlacement& operator=(const DialogPlacement&) = delete;

 private:
  HHOOK hook_;
};

}  // namespace tarrow
