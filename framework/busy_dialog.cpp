#include "framework/busy_dialog.h"

namespace tarrow {
namespace {

constexpr int kMostPaints = 50;  // at a look: a window that never becomes valid must not hold the work up

}  // namespace

OtherWindowsDisabled::OtherWindowsDisabled(HWND dialog) : dialog_(dialog) {
  ::EnumThreadWindows(::GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this));
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
  for (HWND window : disabled_) ::EnableWindow(window, TRUE);
}

BOOL CALLBACK OtherWindowsDisabled::Disable(HWND window, LPARAM object) noexcept {
  auto* self = reinterpret_cast<OtherWindowsDisabled*>(object);
  if (window == self->dialog_ || !::IsWindowVisible(window) || !::IsWindowEnabled(window)) return TRUE;
  self->disabled_.push_back(window);
  ::EnableWindow(window, FALSE);
  return TRUE;
}

void DispatchForDialog(HWND dialog) {
  MSG message;
  while (::IsWindow(dialog) && ::PeekMessageW(&message, dialog, 0, 0, PM_REMOVE)) {
    if (::IsDialogMessageW(dialog, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  for (int i = 0; i < kMostPaints && ::PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i)
    ::DispatchMessageW(&message);
}

}  // namespace tarrow
