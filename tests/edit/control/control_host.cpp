#include "tests/edit/control/control_host.h"

namespace tarrow {
namespace {

constexpr WindowClass kHostClass{L"TarrowTestControlHost"};

// The keys that GetKeyState sees held while one lives.
class HeldKeys {
 public:
  HeldKeys(bool shift, bool control) {
    BYTE keys[256]{};
    ::GetKeyboardState(before_);
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    keys[VK_CONTROL] = control ? 0x80 : 0;
    ::SetKeyboardState(keys);
  }
  ~HeldKeys() { ::SetKeyboardState(before_); }

 private:
  BYTE before_[256]{};
};

}  // namespace

constinit const MessageMap ControlHost::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_RBUTTONDOWN, &ControlHost::OnRButtonDown>>();

ControlHost::ControlHost() {
  WindowSpec spec;
  spec.style = WS_POPUP;
  spec.bounds = {0, 0, 640, 400};
  EXPECT_TRUE(Create(kHostClass, spec));
  EXPECT_TRUE(control.CreateControl(Handle(), kControlId, kControlStyle, {0, 0, 640, 400}));
  ::SetFocus(control.Handle());
  PumpMessages();
  notified.clear();
}

LRESULT ControlHost::WindowProc(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_COMMAND && LOWORD(w) == kControlId && reinterpret_cast<HWND>(l) == control.Handle())
    ++notified[HIWORD(w)];
  return CWnd::WindowProc(message, w, l);
}

void ControlHost::SetText(const std::string& text) {
  TextBuffer buffer;
  buffer.Replace({}, text, EditKind::kForgotten);
  control.Adopt(std::move(buffer));
  PumpMessages();
  notified.clear();
}

void ControlHost::Press(UINT key, bool shift, bool controlKey) {
  HeldKeys held(shift, controlKey);
  control.Send(WM_KEYDOWN, key);
}

void ControlHost::Type(std::u16string_view text) {
  for (char16_t unit : text) {
    MSG message{control.Handle(), WM_CHAR, unit, 0, 0, {}};
    EXPECT_TRUE(control.PreDispatch(message));
  }
}

void ControlHost::Mouse(UINT message, POINT at, UINT keys) {
  control.Send(message, keys, MAKELPARAM(at.x, at.y));
}

std::string ControlHost::Shown() const {
  std::string text = Content();
  TextRange selection = control.Selection();
  auto start = static_cast<std::size_t>(selection.start.value),
       end = static_cast<std::size_t>(selection.end.value);
  if (start == end) return text.substr(0, start) + "|" + text.substr(start);
  return text.substr(0, start) + "[" + text.substr(start, end - start) + "]" + text.substr(end);
}

}  // namespace tarrow
