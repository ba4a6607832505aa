// A printer's device context as the surface that pages are drawn on.
#pragma once

#include "base/exceptions.h"
#include "edit/control/font_widths.h"
#include "print/print_surface.h"

#include <windows.h>

#include <functional>

namespace tarrow {

// The printer, or the system's spooler, has refused a page or a job.
class CPrinterException : public CException {
 public:
  const char* what() const noexcept override { return "printing failed"; }
};

class PrinterSurface final : public PrintSurface {
 public:
  // The context and the font outlive the object. `onPage` is called before each page.
  PrinterSurface(HDC printer, HFONT font, std::function<void(int number)> onPage);

  // The size of the letter H.
  SIZE CellSize() const;

  const CharWidths& Widths() const override { return widths_; }
  void BeginPage(int number) override;  // throws CPrinterException
  void EndPage() override;              // throws CPrinterException
  void Draw(int x, int y, std::u16string_view text, std::span<const int> advances) override;

 private:
  HDC printer_;
  FontWidths widths_;
  std::function<void(int)> onPage_;
  HGDIOBJ fontBefore_ = nullptr;
};

}  // namespace tarrow
