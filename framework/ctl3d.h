// The optional library CTL3D32.DLL, which gives dialogs a three-dimensional look on systems that have none.
//
// Bound by name at start-up; where it is missing or refuses, dialogs are drawn plainly and nothing else
// changes. While a binding lives and is registered, CDialog uses it.
#pragma once

#include "framework/handle.h"

#include <windows.h>

namespace tarrow {

class Ctl3dBinding {
 public:
  // Loads the library and registers the program with it. At most one binding lives at a time.
  Ctl3dBinding();
  ~Ctl3dBinding();
  Ctl3dBinding(const Ctl3dBinding&) = delete;
  Ctl3dBinding& operator=(const Ctl3dBinding&) = delete;

  // The living binding if its registration succeeded, else null.
  static const Ctl3dBinding* Current();

  // Gives a dialog, in its WM_INITDIALOG, and all its controls the look.
  void Adopt(HWND dialog) const;

  // The brush for a WM_CTLCOLOR message, or null for the usual one.
  HBRUSH ControlColor(UINT message, WPARAM w, LPARAM l) const;

  // The system's colours have changed.
  void ColorChange() const;

 private:
  bool Bind();

  ModuleHandle module_;
  BOOL registered_ = FALSE;
  BOOL(WINAPI* subclassDlg_)(HWND, WORD) = nullptr;
  HBRUSH(WINAPI* ctlColorEx_)(UINT, WPARAM, LPARAM) = nullptr;
  BOOL(WINAPI* colorChange_)() = nullptr;
  BOOL(WINAPI* unregister_)(HINSTANCE) = nullptr;
};

}  // namespace tarrow
