#include "print/printer_surface.h"

#include "framework/handle.h"

#include <algorithm>

namespace tarrow {

PrinterSurface::PrinterSurface(HDC printer, HFONT font, std::function<void(int)> onPage)
    : printer_(printer), widths_(font, printer), onPage_(std::move(onPage)) {}

SIZE PrinterSurface::CellSize() const {
  SelectedObject font(printer_, widths_.Font());
  SIZE size{};
  ::GetTextExtentPoint32W(printer_, L"H", 1, &size);
  return {std::max<LONG>(1, size.cx), std::max<LONG>(1, size.cy)};
}

void PrinterSurface::BeginPage(int number) {
  onPage_(number);
  if (::StartPage(printer_) <= 0) throw CPrinterException();
  fontBefore_ = ::SelectObject(printer_, widths_.Font());
  ::SetBkMode(printer_, TRANSPARENT);
}

void PrinterSurface::EndPage() {
  ::SelectObject(printer_, fontBefore_);
  if (::EndPage(printer_) <= 0) throw CPrinterException();
}

void PrinterSurface::Draw(int x, int y, std::u16string_view text, std::span<const int> advances) {
  ::ExtTextOutW(printer_, x, y, 0, nullptr, reinterpret_cast<const wchar_t*>(text.data()),
                static_cast<UINT>(text.size()), advances.data());
}

}  // namespace tarrow
