#include "ui/program/escape_key.h"

#include <windows.h>

namespace tarrow {

namespace {

bool IsInFront() {
  DWORD process = 0;
  ::GetWindowThreadProcessId(::GetForegroundWindow(), &process);
  return process == ::GetCurrentProcessId();
}

// The state of the key holds also behind keys typed ahead, which wait in the queue; that it was pressed in
// another program does not count.
bool WasPressed() {
  return (::GetAsyncKeyState(VK_ESCAPE) & 0x8001) != 0 && IsInFront();
}

// Takes the Escape at the front of the queue out of it.
bool TakeFromQueue() {
  MSG message;
  bool waits = ::PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE) != 0;
  if (!waits || message.wParam != VK_ESCAPE) return false;
  return ::PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE) != 0;
}

}  // namespace

void ForgetEscape() {
  WasPressed();
}

bool TakeEscape() {
  bool taken = TakeFromQueue();
  return WasPressed() || taken;
}

}  // namespace tarrow
