#include "benchmarks/window_process.h"

namespace tarrow::bench {
namespace {

struct WindowSearch {
  DWORD process;
  HWND found;
};

BOOL CALLBACK LookAt(HWND window, LPARAM search) {
  auto& looking = *reinterpret_cast<WindowSearch*>(search);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == looking.process && IsWindowVisible(window)) looking.found = window;
  return looking.found == nullptr;
}

bool WaitsToBePainted(HWND window) {
  if (GetUpdateRect(window, nullptr, FALSE)) return true;
  for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    if (IsWindowVisible(child) && WaitsToBePainted(child)) return true;
  return false;
}

}  // namespace

HWND WindowProcess::MainWindow() const {
  WindowSearch search{process_.dwProcessId, nullptr};
  EnumWindows(LookAt, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool WindowProcess::IsReady() const {
  const HWND window = MainWindow();
  DWORD_PTR answer = 0;
  return window && SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &answer) &&
         !WaitsToBePainted(window);
}

int WindowProcess::Children() const {
  const HWND client = FindWindowExW(MainWindow(), nullptr, L"MDICLIENT", nullptr);
  if (!client || !IsWindowVisible(client)) return -1;
  int count = 0;
  for (HWND child = GetWindow(client, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) ++count;
  return count;
}

bool WindowProcess::WaitUntil(const std::function<bool()>& condition, DWORD limitMilliseconds) const {
  const DWORD began = GetTickCount();
  while (!condition() || !IsReady()) {
    if (GetTickCount() - began > limitMilliseconds) return false;
    Sleep(1);
  }
  return true;
}

}  // namespace tarrow::bench
