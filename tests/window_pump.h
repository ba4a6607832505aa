// The message pump of the window tests: a test never sleeps, it waits for a condition.
#pragma once

#include <windows.h>

#include <chrono>

namespace tarrow {

// Dispatches all that is in the queue now.
inline void PumpMessages() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

// Dispatches messages until `condition` holds; false when it does not within ten seconds.
template <typename Condition>
[[nodiscard]] bool PumpUntil(Condition condition) {
  auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  for (;;) {
    PumpMessages();
    if (condition()) return true;
    if (std::chrono::steady_clock::now() > limit) return false;
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
}

}  // namespace tarrow
