// A view's surface on a device context: text in the colours of the system, a selection in those of
// selections.
#pragma once

#include "framework/handle.h"
#include "viewer/views/view_paint.h"

#include <windows.h>

namespace tarrow {

class DcSurface final : public ViewSurface {
 public:
  // Both outlive the object.
  DcSurface(HDC dc, HFONT font) : dc_(dc), font_(dc, font) {}

  void Draw(const PixelRect& area, std::u16string_view text, std::span<const int> advances,
            bool isSelected) override;

 private:
  HDC dc_;
  SelectedObject font_;
};

}  // namespace tarrow
