// The one message loop: where a message goes before it is dispatched.
//
// In order: the modeless dialogs (for their Tab, Enter and Escape), the MDI keys, the accelerators, the
// window itself (CWnd::PreDispatch: a text control takes its characters here, while they still are UTF-16),
// then dispatch. When the queue is empty, the idle routine runs once.
#pragma once

#include <windows.h>

#include <functional>

namespace tarrow {

class MessageLoop {
 public:
  // The frame that has the MDI client and the accelerators; null handles take no part.
  struct Targets {
    HWND frame = nullptr;
    HWND mdiClient = nullptr;
    HACCEL accelerators = nullptr;
  };

  // Runs until WM_QUIT and returns its code. `targets` is asked for every message, since the accelerator
  // table changes with the key bindings; `idle` may be empty.
  static int Run(const std::function<Targets()>& targets, const std::function<void()>& idle);

  // A modeless dialog, ours or the system's, takes part until its window is gone.
  static void AddModeless(HWND dialog);

  // Deals with one message as Run does.
  static void Handle(MSG& message, const Targets& targets);
};

}  // namespace tarrow
