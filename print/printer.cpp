#include "print/printer.h"

#include "framework/unicode.h"

#include <commdlg.h>

#include <algorithm>
#include <string>

namespace tarrow {
namespace {

// What a handle of movable memory holds, for the scope's time.
template <typename T>
class LockedGlobal {
 public:
  explicit LockedGlobal(HGLOBAL memory)
      : memory_(memory), data_(memory ? static_cast<T*>(::GlobalLock(memory)) : nullptr) {}
  ~LockedGlobal() {
    if (data_) ::GlobalUnlock(memory_);
  }
  LockedGlobal(const LockedGlobal&) = delete;
  LockedGlobal& operator=(const LockedGlobal&) = delete;
  T* Get() const { return data_; }

 private:
  HGLOBAL memory_;
  T* data_;
};

}  // namespace

std::optional<PrinterName> DefaultPrinterName() {
  // Wine writes the profile when a program first loads this library; it stays loaded.
  static const HMODULE spooler = ::LoadLibraryW(L"winspool.drv");
  (void)spooler;
  std::wstring value(1024, L'\0');
  value.resize(
      ::GetProfileStringW(L"windows", L"device", L"", value.data(), static_cast<DWORD>(value.size())));
  return ParsePrinterName(ToUtf8(value));
}

std::optional<PrinterName> NameOf(const PrinterChoice& choice) {
  LockedGlobal<const DEVNAMES> names(choice.names.Get());
  if (!names.Get()) return DefaultPrinterName();
  auto part = [&](WORD offset) { return ToUtf8(reinterpret_cast<const wchar_t*>(names.Get()) + offset); };
  return PrinterName{part(names.Get()->wDeviceOffset), part(names.Get()->wDriverOffset),
                     part(names.Get()->wOutputOffset)};
}

MemoryDcHandle PrinterContext(const PrinterName& name, const PrinterChoice& choice) {
  LockedGlobal<const DEVMODEW> mode(choice.mode.Get());
  return MemoryDcHandle(
      ::CreateDCW(ToWide(name.driver).c_str(), ToWide(name.device).c_str(), nullptr, mode.Get()));
}

PageMetrics MetricsOf(HDC printer) {
  auto ask = [printer](int what) { return ::GetDeviceCaps(printer, what); };
  PageMetrics page;
  page.width = ask(HORZRES);
  page.height = ask(VERTRES);
  page.widthMm10 = 10 * ask(HORZSIZE);
  page.heightMm10 = 10 * ask(VERTSIZE);
  int paperWidth = ask(PHYSICALWIDTH), paperHeight = ask(PHYSICALHEIGHT);
  if (paperWidth <= 0 || paperHeight <= 0) return page;
  page.offsetX = ask(PHYSICALOFFSETX);
  page.offsetY = ask(PHYSICALOFFSETY);
  page.extraRight = std::max(0, paperWidth - page.width - page.offsetX);
  page.extraBottom = std::max(0, paperHeight - page.height - page.offsetY);
  return page;
}

}  // namespace tarrow
