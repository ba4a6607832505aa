// The one message loop: where a message goes before it is dispatched.
//
// In order: the modeless dialogs (for their Tab, Enter and Escape), the keys that run commands, the MDI keys,
// the window itself (CWnd::PreDispatch: a text control takes its characters here, while they still are
// UTF-16), then dispatch. When the queue is empty, the idle routine runs once, unless nothing has come but
// timers, painting and movements of the mouse.
#pragma once

#include <windows.h>

#include <functional>

namespace tarrow {

class MessageLoop {
 public:
  // The number of the command that a key runs, 0 for none. The modifiers are FSHIFT, FCONTROL and FALT.
  using CommandOfKey = std::function<UINT(UINT key, BYTE modifiers)>;

  // The frame that has the MDI client and gets the commands.
  struct Targets {
    HWND frame = nullptr;
    HWND mdiClient = nullptr;
    CommandOfKey commandOf;
  };

  // Runs until WM_QUIT and returns its code. `idle` may be empty.
  static int Run(const Targets& targets, const std::function<void()>& idle);

  // A modeless dialog, ours or the system's, takes part until its window is gone.
  static void AddModeless(HWND dialog);

  // Deals with one message as Run does.
  static void Handle(MSG& message, const Targets& targets);
};

}  // namespace tarrow
