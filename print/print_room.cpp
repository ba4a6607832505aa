#include "print/print_room.h"

#include "base/path_text.h"
#include "edit/documents/child.h"
#include "framework/common_dialogs.h"
#include "framework/file_system.h"
#include "framework/regional.h"
#include "print/page_setup.h"
#include "print/print_job.h"
#include "print/printer_surface.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"
#include "ui/settings/font_value.h"

namespace tarrow {
namespace {

constexpr const char* kPrinterFontKey = "PrinterFont";

// The names under which a document is printed: those of its file on the disk, or its title.
HeaderFields FieldsOf(const CTwChild& window) {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  std::string path = window.Has(kUntitled) ? window.Path() : TrueCasePath(window.Path());
  std::string name = window.Has(kUntitled) ? path : std::string(FileNamePart(path));
  return {name, path, ShortDate(now), LongDate(now), TimeOfDay(now)};
}

PRINTDLGW DialogFor(HWND owner, PrinterChoice& choice, DWORD flags) {
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.hDevMode = choice.mode.Release();
  dialog.hDevNames = choice.names.Release();
  dialog.Flags = flags;
  return dialog;
}

// Runs the dialog; what it says of the printer is kept, whichever way it ends. A printer that has gone since
// is forgotten, and the dialog runs for the default one.
bool RunPrintDialog(PRINTDLGW& dialog, PrinterChoice& choice) {
  bool isAccepted = kPrintDlg(&dialog) != 0;
  if (!isAccepted && kCommDlgExtendedError() != 0 && dialog.hDevNames) {
    GlobalHandle(dialog.hDevMode).Reset();
    GlobalHandle(dialog.hDevNames).Reset();
    dialog.hDevMode = dialog.hDevNames = nullptr;
    isAccepted = kPrintDlg(&dialog) != 0;
  }
  choice.mode.Reset(dialog.hDevMode);
  choice.names.Reset(dialog.hDevNames);
  return isAccepted;
}

FontHandle PrinterFont(const StoredSettings& stored, HDC printer) {
  LOGFONTW font = PrinterLogFont(ParseFont(stored.Setting(kPrinterFontKey).value_or("")),
                                 ::GetDeviceCaps(printer, LOGPIXELSY));
  return FontHandle(::CreateFontIndirectW(&font));
}

}  // namespace

constinit const MessageMap PrintRoom::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kFilePrint, &PrintRoom::OnPrint, &PrintRoom::CanPrint>,
                     OnCommand<kFilePrintSetup, &PrintRoom::OnPrintSetup>>();

bool PrintRoom::CanPrint() const {
  return dynamic_cast<Printable*>(documents_.ActiveDocument()) != nullptr;
}

void PrintRoom::OnPrint() {
  CTwChild* window = documents_.ActiveDocument();
  auto* document = dynamic_cast<Printable*>(window);
  if (!document) return messages_.Alert(MB_ICONEXCLAMATION);
  Wish wish;
  if (CheckPrinter() && Ask(*document, wish)) Print(*window, *document, wish);
}

bool PrintRoom::PrintActiveDocument() {
  CTwChild* window = documents_.ActiveDocument();
  auto* document = dynamic_cast<Printable*>(window);
  return document && CheckPrinter() && Print(*window, *document, {});
}

void PrintRoom::OnPrintSetup() {
  if (!CheckPrinter()) return;
  PRINTDLGW dialog = DialogFor(frame_.Handle(), choice_, PD_PRINTSETUP);
  RunPrintDialog(dialog, choice_);
}

// The dialogs of the system would speak of no printer in their own words.
bool PrintRoom::CheckPrinter() {
  if (NameOf(choice_)) return true;
  ReportNoPrinter({});
  return false;
}

void PrintRoom::ReportNoPrinter(const PrinterName& name) {
  messages_.ShowMessageBox(nullptr, MB_OK | MB_ICONEXCLAMATION, kTextNoPrinter,
                           {name.device, name.driver, name.port});
}

bool PrintRoom::Ask(const Printable& document, Wish& wish) {
  DWORD selection = document.HasSelection() ? 0 : PD_NOSELECTION;
  PRINTDLGW dialog =
      DialogFor(frame_.Handle(), choice_, PD_ALLPAGES | PD_USEDEVMODECOPIESANDCOLLATE | selection);
  dialog.nMinPage = dialog.nFromPage = dialog.nToPage = static_cast<WORD>(wish.range.first);
  dialog.nMaxPage = static_cast<WORD>(wish.range.last);
  if (!RunPrintDialog(dialog, choice_)) return false;
  if (dialog.Flags & PD_PAGENUMS) wish.range = {dialog.nFromPage, dialog.nToPage};
  if (dialog.Flags & PD_SELECTION) wish.part = PrintedPart::kSelection;
  wish.toFile = (dialog.Flags & PD_PRINTTOFILE) != 0;
  return true;
}

bool PrintRoom::Print(const CTwChild& window, const Printable& document, const Wish& wish) {
  PrinterName name = NameOf(choice_).value_or(PrinterName());
  MemoryDcHandle printer = PrinterContext(name, choice_);
  if (!printer) return ReportNoPrinter(name), false;
  FontHandle font = PrinterFont(stored_, printer.Get());
  if (!font) {
    messages_.ShowMessageBox(nullptr, MB_OK | MB_ICONEXCLAMATION, kTextNoPrinterFont);
    return false;
  }
  PageSetup setup = LoadPageSetup(stored_);
  HeaderFields fields = FieldsOf(window);
  PrintJob job{printer.Get(), font.Get(), fields.name, wish.toFile, {}};
  job.format.tabSize = settings_.tabSize;
  job.format.header = setup.header;
  job.format.footer = setup.footer;
  job.format.fields = fields;
  job.format.range = wish.range;
  return RunJob(job, setup.margins, *document.LinesToPrint(wish.part), name);
}

// The dialog is gone before a message comes.
bool PrintRoom::RunJob(PrintJob& job, const Margins& margins, PrintedLines& lines,
                       const PrinterName& printer) {
  PrintedPages pages;
  try {
    CPrintingDialog dialog(job.title, printer);
    dialog.Open(frame_.Handle());
    pages = RunPrintJob(job, margins, lines, dialog);
  } catch (const CYieldException&) {
    return false;
  } catch (const CFileException& error) {
    messages_.ShowFileError(nullptr, error);
    return false;
  } catch (const CPrinterException&) {
    messages_.ShowMessageBox(nullptr, MB_OK | MB_ICONEXCLAMATION, kTextCannotPrint, {job.title});
    return false;
  }
  if (pages.drawn == 0)
    messages_.ShowMessageBox(nullptr, MB_OK | MB_ICONEXCLAMATION, kTextNoSuchPage,
                             {job.title, pages.counted});
  return pages.drawn > 0;
}

}  // namespace tarrow
