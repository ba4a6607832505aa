#include "ui/bars/clock_timer.h"

#include <algorithm>
#include <vector>

namespace tarrow {

namespace {

std::vector<HWND> clocks;
UINT_PTR timer = 0;

UINT MillisecondsToNextMinute() {
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  return (60u - std::min<UINT>(now.wSecond, 59)) * 1000;
}

void CALLBACK OnMinute(HWND, UINT, UINT_PTR id, DWORD) {
  timer = ::SetTimer(nullptr, id, 60'000, OnMinute);
  for (HWND clock : std::vector(clocks)) ::SendMessageW(clock, kClockTick, 0, 0);
}

}  // namespace

void StartClock(HWND window) {
  if (std::ranges::find(clocks, window) != clocks.end()) return;
  clocks.push_back(window);
  if (clocks.size() == 1) AlignClock();
}

void StopClock(HWND window) {
  if (std::erase(clocks, window) == 0 || !clocks.empty()) return;
  ::KillTimer(nullptr, timer);
  timer = 0;
}

void AlignClock() {
  if (!clocks.empty()) timer = ::SetTimer(nullptr, timer, MillisecondsToNextMinute(), OnMinute);
}

}  // namespace tarrow
