#include "framework/message_loop.h"

#include "framework/wnd.h"

#include <algorithm>
#include <vector>

namespace tarrow {
namespace {

std::vector<HWND>& Modeless() {
  static std::vector<HWND> dialogs;
  return dialogs;
}

bool TakenByDialog(MSG& message) {
  auto& dialogs = Modeless();
  std::erase_if(dialogs, [](HWND dialog) { return !::IsWindow(dialog); });
  return std::any_of(dialogs.begin(), dialogs.end(),
                     [&](HWND dialog) { return ::IsDialogMessageW(dialog, &message) != 0; });
}

// The platform's own translation holds a command back when its menu item is grey. Here it is sent in any
// case: a command that cannot act refuses with its beep, and the user knows that the key was right.
bool SentAsCommand(const MSG& message, const MessageLoop::Targets& targets) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  auto held = [](int key, int flag) { return ::GetKeyState(key) < 0 ? flag : 0; };
  int modifiers = held(VK_SHIFT, FSHIFT) | held(VK_CONTROL, FCONTROL) | held(VK_MENU, FALT);
  UINT command = targets.commandOf(static_cast<UINT>(message.wParam), static_cast<BYTE>(modifiers));
  if (command == 0) return false;
  constexpr WORD kFromKey = 1;
  ::SendMessageW(targets.frame, WM_COMMAND, MAKEWPARAM(command, kFromKey), 0);
  return true;
}

bool TakenByFrame(MSG& message, const MessageLoop::Targets& targets) {
  // While the mouse is held in a window (a selection is being drawn), a command must not change what is under
  // it.
  if (::GetCapture()) return false;
  return SentAsCommand(message, targets) || ::TranslateMDISysAccel(targets.mdiClient, &message);
}

bool TakenByWindow(const MSG& message) {
  CWnd* window = CWnd::FromHandle(message.hwnd);
  return window && window->PreDispatch(message);
}

// Whether a message may have changed what the user can do. The blinking of a caret, painting, and the mouse
// on its way across the windows do not.
bool IsOfConsequence(UINT message) {
  constexpr UINT kSystemTimer = 0x118;
  switch (message) {
    case WM_TIMER:
    case kSystemTimer:
    case WM_PAINT:
    case WM_MOUSEMOVE:
    case WM_NCMOUSEMOVE:
    case WM_MOUSELEAVE:
    case WM_NCMOUSELEAVE:
      return false;
    default:
      return true;
  }
}

}  // namespace

void MessageLoop::AddModeless(HWND dialog) {
  Modeless().push_back(dialog);
}

// The commands come before the MDI keys, so that Ctrl+Tab and Ctrl+F4 can be bound to commands.
void MessageLoop::Handle(MSG& message, const Targets& targets) {
  if (TakenByDialog(message) || TakenByFrame(message, targets)) return;
  ::TranslateMessage(&message);
  if (!TakenByWindow(message)) ::DispatchMessageW(&message);
}

int MessageLoop::Run(const Targets& targets, const std::function<void()>& idle) {
  MSG message{};
  bool wantsIdle = true;
  for (;;) {
    if (wantsIdle && !::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
      if (idle) idle();
      wantsIdle = false;
    }
    BOOL more = ::GetMessageW(&message, nullptr, 0, 0);
    if (more <= 0) return static_cast<int>(message.wParam);
    Handle(message, targets);
    wantsIdle = wantsIdle || IsOfConsequence(message.message);
  }
}

}  // namespace tarrow
