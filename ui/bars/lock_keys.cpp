#include "ui/bars/lock_keys.h"

#include "framework/handle.h"

#include <algorithm>
#include <vector>

namespace tarrow {

namespace {

using HookHandle = UniqueHandle<HHOOK, ::UnhookWindowsHookEx>;

std::vector<HWND> watchers;
HookHandle hook;

LRESULT CALLBACK OnKey(int code, WPARAM key, LPARAM data) {
  if (code == HC_ACTION && (key == VK_CAPITAL || key == VK_NUMLOCK)) {
    for (HWND watcher : watchers) ::PostMessageW(watcher, kLockKeysChanged, 0, 0);
  }
  return ::CallNextHookEx(nullptr, code, key, data);
}

}  // namespace

void WatchLockKeys(HWND window) {
  watchers.push_back(window);
  if (!hook) hook.Reset(::SetWindowsHookExW(WH_KEYBOARD, OnKey, nullptr, ::GetCurrentThreadId()));
}

void UnwatchLockKeys(HWND window) {
  std::erase(watchers, window);
  if (watchers.empty()) hook.Reset();
}

}  // namespace tarrow
