// One timer for the clocks of all status bars.
//
// It runs while there is a clock. It fires first on the next minute and then every minute, and repaints each
// clock.
#pragma once

#include <windows.h>

namespace tarrow {

// Begins to send `window` the message kClockTick every minute; the first window starts the timer.
inline constexpr UINT kClockTick = WM_APP + 0x20;
void StartClock(HWND window);

// Ends that; the last window stops the timer. A window without a clock is left alone.
void StopClock(HWND window);

// The time of day has been changed: lets the timer fire on the minute again.
void AlignClock();

}  // namespace tarrow
