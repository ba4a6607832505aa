// What each message's wParam and lParam mean: the signature of its handler and how to call it.
//
// A message without a trait of its own is handled by LRESULT (WPARAM, LPARAM). Coordinates are signed shorts,
// so that they are right on a screen to the left of the first.
#pragma once

#include <windows.h>
#include <windowsx.h>

#include <type_traits>

namespace tarrow {

namespace detail {
inline POINT PointOf(LPARAM l) {
  return {GET_X_LPARAM(l), GET_Y_LPARAM(l)};
}
}  // namespace detail

template <UINT M>
struct MessageTraits {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    return (object.*F)(w, l);
  }
};

// void ()
struct PlainMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM, LPARAM) {
    (object.*F)();
    return 0;
  }
};
template <>
struct MessageTraits<WM_CLOSE> : PlainMessage {};
template <>
struct MessageTraits<WM_DESTROY> : PlainMessage {};
template <>
struct MessageTraits<WM_PAINT> : PlainMessage {};
template <>
struct MessageTraits<WM_SYSCOLORCHANGE> : PlainMessage {};
template <>
struct MessageTraits<WM_TIMECHANGE> : PlainMessage {};
template <>
struct MessageTraits<WM_CANCELMODE> : PlainMessage {};

// void (HWND other)
struct FocusMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(reinterpret_cast<HWND>(w));
    return 0;
  }
};
template <>
struct MessageTraits<WM_SETFOCUS> : FocusMessage {};
template <>
struct MessageTraits<WM_KILLFOCUS> : FocusMessage {};

// void (UINT keys, POINT client)
struct MouseMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(static_cast<UINT>(w), detail::PointOf(l));
    return 0;
  }
};
template <>
struct MessageTraits<WM_MOUSEMOVE> : MouseMessage {};
template <>
struct MessageTraits<WM_LBUTTONDOWN> : MouseMessage {};
template <>
struct MessageTraits<WM_LBUTTONUP> : MouseMessage {};
template <>
struct MessageTraits<WM_LBUTTONDBLCLK> : MouseMessage {};
template <>
struct MessageTraits<WM_RBUTTONDOWN> : MouseMessage {};
template <>
struct MessageTraits<WM_RBUTTONUP> : MouseMessage {};
template <>
struct MessageTraits<WM_MBUTTONDOWN> : MouseMessage {};

// void (int delta, UINT keys, POINT screen)
struct WheelMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(GET_WHEEL_DELTA_WPARAM(w), GET_KEYSTATE_WPARAM(w), detail::PointOf(l));
    return 0;
  }
};
template <>
struct MessageTraits<WM_MOUSEWHEEL> : WheelMessage {};
template <>
struct MessageTraits<WM_MOUSEHWHEEL> : WheelMessage {};

// void (UINT key, LPARAM keyData)
struct KeyMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(static_cast<UINT>(w), l);
    return 0;
  }
};
template <>
struct MessageTraits<WM_KEYDOWN> : KeyMessage {};
template <>
struct MessageTraits<WM_KEYUP> : KeyMessage {};
template <>
struct MessageTraits<WM_CHAR> : KeyMessage {};

// void (UINT code, UINT position, HWND bar)
struct ScrollMessage {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(LOWORD(w), HIWORD(w), reinterpret_cast<HWND>(l));
    return 0;
  }
};
template <>
struct MessageTraits<WM_HSCROLL> : ScrollMessage {};
template <>
struct MessageTraits<WM_VSCROLL> : ScrollMessage {};

// bool (const CREATESTRUCTW&): false ends the creation
template <>
struct MessageTraits<WM_CREATE> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM, LPARAM l) {
    return (object.*F)(*reinterpret_cast<const CREATESTRUCTW*>(l)) ? 0 : -1;
  }
};

// bool (): whether the first control is to get the focus
template <>
struct MessageTraits<WM_INITDIALOG> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM, LPARAM) {
    return (object.*F)();
  }
};

// void (UINT kind, int width, int height): client size in pixels
template <>
struct MessageTraits<WM_SIZE> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(static_cast<UINT>(w), static_cast<int>(LOWORD(l)), static_cast<int>(HIWORD(l)));
    return 0;
  }
};

// bool (HDC): whether the background is done
template <>
struct MessageTraits<WM_ERASEBKGND> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    return (object.*F)(reinterpret_cast<HDC>(w));
  }
};

// void (UINT_PTR id)
template <>
struct MessageTraits<WM_TIMER> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(static_cast<UINT_PTR>(w));
    return 0;
  }
};

// void (HMENU menu, UINT index, bool isSystemMenu)
template <>
struct MessageTraits<WM_INITMENUPOPUP> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(reinterpret_cast<HMENU>(w), static_cast<UINT>(LOWORD(l)), HIWORD(l) != 0);
    return 0;
  }
};

// void (UINT item, UINT flags, HMENU menu): flags 0xFFFF and no menu when the menu closes
template <>
struct MessageTraits<WM_MENUSELECT> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(static_cast<UINT>(LOWORD(w)), static_cast<UINT>(HIWORD(w)), reinterpret_cast<HMENU>(l));
    return 0;
  }
};

// void (bool active)
template <>
struct MessageTraits<WM_ACTIVATEAPP> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(w != 0);
    return 0;
  }
};

// bool (): whether the session may end
template <>
struct MessageTraits<WM_QUERYENDSESSION> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM, LPARAM) {
    return (object.*F)();
  }
};

// void (bool ending)
template <>
struct MessageTraits<WM_ENDSESSION> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(w != 0);
    return 0;
  }
};

// void (UINT command): the low four bits, which Windows uses itself, taken off
template <>
struct MessageTraits<WM_SYSCOMMAND> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(static_cast<UINT>(w & 0xFFF0));
    return 0;
  }
};

// void (HWND deactivated, HWND activated)
template <>
struct MessageTraits<WM_MDIACTIVATE> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    (object.*F)(reinterpret_cast<HWND>(w), reinterpret_cast<HWND>(l));
    return 0;
  }
};

// void (HANDLE drop)
template <>
struct MessageTraits<WM_DROPFILES> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM) {
    (object.*F)(reinterpret_cast<HANDLE>(w));
    return 0;
  }
};

// bool (HWND window, UINT hitTest): whether the cursor is set
template <>
struct MessageTraits<WM_SETCURSOR> {
  template <auto F, typename C>
  static LRESULT Call(C& object, WPARAM w, LPARAM l) {
    return (object.*F)(reinterpret_cast<HWND>(w), static_cast<UINT>(LOWORD(l)));
  }
};

}  // namespace tarrow
