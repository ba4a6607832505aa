// Printers: which one the user prints on, its device context, and what it says of its pages.
#pragma once

#include "framework/handle.h"
#include "print/page_area.h"
#include "print/printer_name.h"

#include <windows.h>

#include <optional>

namespace tarrow {

namespace detail {
inline void FreeGlobal(HGLOBAL memory) {
  ::GlobalFree(memory);
}
}  // namespace detail

using GlobalHandle = UniqueHandle<HGLOBAL, detail::FreeGlobal>;

// A printer and how it is to print, as the system's dialogs hand them on; empty, the default printer.
struct PrinterChoice {
  GlobalHandle mode;   // DEVMODEW
  GlobalHandle names;  // DEVNAMES
};

// The printer that the system profile names; nothing when there is none.
[[nodiscard]] std::optional<PrinterName> DefaultPrinterName();

// The printer of a choice, the default one for an empty choice.
[[nodiscard]] std::optional<PrinterName> NameOf(const PrinterChoice& choice);

// A device context to print on; none when the printer cannot be reached.
[[nodiscard]] MemoryDcHandle PrinterContext(const PrinterName& name, const PrinterChoice& choice);

[[nodiscard]] PageMetrics MetricsOf(HDC printer);

}  // namespace tarrow
