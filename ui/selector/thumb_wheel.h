// CThumbWheel: two small arrows, one above the other, that step through a list.
//
// The platform's up-down control without a field of its own: its parent gets WM_NOTIFY with UDN_DELTAPOS and
// decides where to go.
#pragma once

#include "framework/wnd.h"

namespace tarrow {

class CThumbWheel final : public CWnd {
 public:
  // Makes the wheel as a child of `parent`. False when it could not be made.
  [[nodiscard]] bool CreateWheel(HWND parent, UINT id);

  // The step that a notification asks for: -1 up the list, 1 down, more while the button is held; 0 when the
  // notification is another one.
  static int StepOf(LPARAM notification);

  // What to answer to it: the wheel has no position of its own.
  static constexpr LRESULT kStay = TRUE;
};

}  // namespace tarrow
