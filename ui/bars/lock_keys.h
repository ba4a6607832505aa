// Tells windows when Caps Lock or Num Lock is pressed anywhere in the program, dialogs included.
#pragma once

#include <windows.h>

namespace tarrow {

// Posted to each watcher when one of the keys went up or down. It is posted because the state of the key is
// not yet the new one when the key is seen.
inline constexpr UINT kLockKeysChanged = WM_APP + 0x21;

void WatchLockKeys(HWND window);
void UnwatchLockKeys(HWND window);

}  // namespace tarrow
