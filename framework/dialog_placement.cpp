#include "framework/dialog_placement.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tarrow {
namespace {

// The dialogs that have a place, their own or the one given them here.
std::vector<HWND>& Placed() {
  static std::vector<HWND> dialogs;
  return dialogs;
}

bool IsDialog(HWND window) {
  wchar_t name[16]{};
  ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
  return std::wstring_view(name) == L"#32770";
}

void PlaceOnce(HWND dialog) {
  HWND owner = ::GetWindow(dialog, GW_OWNER);
  if (!IsDialog(dialog) || std::ranges::find(Placed(), dialog) != Placed().end()) return;
  KeepPlace(dialog);
  RECT window{}, over{};
  if (!owner || ::IsIconic(owner) || !::GetWindowRect(dialog, &window) || !::GetWindowRect(owner, &over))
    return;
  RECT placed = PlaceOver(window, over, WorkAreaAt(over));
  ::SetWindowPos(dialog, nullptr, placed.left, placed.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK OnHook(int code, WPARAM w, LPARAM l) {
  if (code == HCBT_ACTIVATE) PlaceOnce(reinterpret_cast<HWND>(w));
  if (code == HCBT_DESTROYWND) std::erase(Placed(), reinterpret_cast<HWND>(w));
  return ::CallNextHookEx(nullptr, code, w, l);
}

// Where a stretch of `length` begins that is to be centred upon [from, to) within [least, most).
LONG Centred(LONG length, LONG from, LONG to, LONG least, LONG most) {
  return std::max(least, std::min(from + (to - from - length) / 2, most - length));
}

}  // namespace

RECT PlaceOver(const RECT& window, const RECT& owner, const RECT& work) {
  LONG width = window.right - window.left, height = window.bottom - window.top;
  LONG left = Centred(width, owner.left, owner.right, work.left, work.right);
  LONG top = Centred(height, owner.top, owner.bottom, work.top, work.bottom);
  return {left, top, left + width, top + height};
}

RECT WorkAreaAt(const RECT& window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!::GetMonitorInfoW(::MonitorFromRect(&window, MONITOR_DEFAULTTONEAREST), &monitor)) return window;
  return monitor.rcWork;
}

void KeepPlace(HWND dialog) {
  Placed().push_back(dialog);
}

DialogPlacement::DialogPlacement()
    : hook_(::SetWindowsHookExW(WH_CBT, OnHook, nullptr, ::GetCurrentThreadId())) {}

DialogPlacement::~DialogPlacement() {
  if (hook_) ::UnhookWindowsHookEx(hook_);
}

}  // namespace tarrow
