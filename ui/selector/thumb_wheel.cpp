#include "ui/selector/thumb_wheel.h"

#include <commctrl.h>

namespace tarrow {

// The range stands on its head, so that the upper arrow, which raises the position, goes towards the front of
// the list.
bool CThumbWheel::CreateWheel(HWND parent, UINT id) {
  HWND wheel = ::CreateWindowExW(0, UPDOWN_CLASSW, nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent,
                                 reinterpret_cast<HMENU>(UINT_PTR{id}), ModuleInstance(), nullptr);
  if (!wheel) return false;
  ::SendMessageW(wheel, UDM_SETRANGE32, static_cast<WPARAM>(-1), 1);
  ::SendMessageW(wheel, UDM_SETPOS32, 0, 0);
  Subclass(wheel);
  return true;
}

int CThumbWheel::StepOf(LPARAM notification) {
  auto* header = reinterpret_cast<const NMHDR*>(notification);
  if (header->code != UDN_DELTAPOS) return 0;
  int delta = reinterpret_cast<const NMUPDOWN*>(notification)->iDelta;
  return delta > 0 ? -1 : 1;
}

}  // namespace tarrow
