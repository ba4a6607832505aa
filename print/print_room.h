// PrintRoom: the commands Print and Print Setup, and printing from the command line.
#pragma once

#include "edit/documents/documents.h"
#include "edit/documents/printable.h"
#include "framework/command_target.h"
#include "framework/mdi.h"
#include "print/page_layout.h"
#include "print/printer.h"
#include "ui/program/messages.h"
#include "ui/program/stored_settings.h"
#include "ui/settings/global_settings.h"

namespace tarrow {

struct PrintJob;

class PrintRoom final : public CommandTarget {
 public:
  // All of them outlive the object.
  PrintRoom(CMDIFrameWnd& frame, Documents& documents, Messages& messages, const StoredSettings& stored,
            const GlobalSettings& settings)
      : frame_(frame), documents_(documents), messages_(messages), stored_(stored), settings_(settings) {}

  // Prints the active document on the default printer, without asking anything. Returns whether it was
  // printed; the user has been told when it was not, unless he cancelled.
  bool PrintActiveDocument();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  // What of a document is to be printed.
  struct Wish {
    PrintedPart part = PrintedPart::kAll;
    PageRange range;
    bool toFile = false;
  };

  void OnPrint();
  void OnPrintSetup();
  bool CanPrint() const;

  bool CheckPrinter();
  bool Ask(const Printable& document, Wish& wish);
  bool Print(const CTwChild& window, const Printable& document, const Wish& wish);
  bool RunJob(PrintJob& job, const Margins& margins, PrintedLines& lines, const PrinterName& printer);
  void ReportNoPrinter(const PrinterName& name);

  CMDIFrameWnd& frame_;
  Documents& documents_;
  Messages& messages_;
  const StoredSettings& stored_;
  const GlobalSettings& settings_;
  PrinterChoice choice_;  // the printer of the last dialog
};

}  // namespace tarrow
