#include "print/print_job.h"

#include "framework/unicode.h"
#include "print/printer.h"
#include "print/printer_surface.h"

#include <utility>

namespace tarrow {
namespace {

CPrintingDialog* currentDialog = nullptr;

// The system calls this now and then while it spools.
BOOL CALLBACK AbortProc(HDC, int) {
  if (!currentDialog) return TRUE;
  currentDialog->Dispatch();
  return !currentDialog->IsCancelled();
}

// The job at the spooler: it is thrown away unless it has been ended.
class SpooledJob {
 public:
  SpooledJob(const PrintJob& job, CPrintingDialog& dialog) : printer_(job.printer) {
    std::wstring title = ToWide(job.title);
    currentDialog = &dialog;
    ::SetAbortProc(printer_, AbortProc);
    DOCINFOW info{sizeof info, title.c_str(), job.toFile ? L"FILE:" : nullptr, nullptr, 0};
    if (::StartDocW(printer_, &info) > 0) return;
    // Whoever is asked for the name of a file may refuse, too.
    bool isCancelled = ::GetLastError() == ERROR_CANCELLED || ::GetLastError() == ERROR_PRINT_CANCELLED;
    Leave();
    if (isCancelled) throw CYieldException();
    throw CPrinterException();
  }
  ~SpooledJob() {
    if (!isEnded_) ::AbortDoc(printer_);
    Leave();
  }
  SpooledJob(const SpooledJob&) = delete;
  SpooledJob& operator=(const SpooledJob&) = delete;

  void End() {
    isEnded_ = true;
    if (::EndDoc(printer_) <= 0) throw CPrinterException();
  }

 private:
  void Leave() {
    ::SetAbortProc(printer_, nullptr);
    currentDialog = nullptr;
  }

  HDC printer_;
  bool isEnded_ = false;
};

}  // namespace

PrintedPages RunPrintJob(PrintJob& job, const Margins& margins, PrintedLines& lines,
                         CPrintingDialog& dialog) {
  PrinterSurface surface(job.printer, job.font, [&](int number) {
    dialog.ShowPage(number);
    dialog.Poll();
  });
  SIZE cell = surface.CellSize();
  job.format.area = AreaWithin(margins, MetricsOf(job.printer));
  job.format.cellWidth = static_cast<int>(cell.cx);
  job.format.lineHeight = static_cast<int>(cell.cy);

  SpooledJob spooled(job, dialog);
  PageLayout layout(job.format, surface, &dialog);
  try {
    int drawn = layout.Print(lines);
    if (drawn > 0) spooled.End();
    return {drawn, layout.Pages()};
  } catch (const CPrinterException&) {
    // A page that the user has cancelled is one that the printer refuses.
    dialog.Poll();
    throw;
  }
}

}  // namespace tarrow
