#include "viewer/views/dc_surface.h"

namespace tarrow {

void DcSurface::Draw(const PixelRect& area, std::u16string_view text, std::span<const int> advances,
                     bool isSelected) {
  ::SetTextColor(dc_, ::GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  ::SetBkColor(dc_, ::GetSysColor(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  RECT rect{area.left, area.top, area.right, area.bottom};
  ::ExtTextOutW(dc_, rect.left, rect.top, ETO_OPAQUE | ETO_CLIPPED, &rect,
                reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()),
                advances.data());
}

}  // namespace tarrow
