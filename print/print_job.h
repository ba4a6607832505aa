// One print job, from its start at the spooler to its end.
#pragma once

#include "edit/documents/printable.h"
#include "print/page_layout.h"
#include "print/printing_dialog.h"

#include <windows.h>

#include <string>

namespace tarrow {

// What a job needs besides the lines.
struct PrintJob {
  HDC printer = nullptr;
  HFONT font = nullptr;
  std::string title;
  bool toFile = false;  // the system asks for the file's name
  PageFormat format;    // area, cells and line height are those of the printer and the font
};

struct PrintedPages {
  int drawn = 0;
  int counted = 0;  // of the document, as far as it was read
};

// Prints the lines. A job that comes to nothing (an exception, or no page within the range) leaves nothing in
// the spooler. Throws CPrinterException, CYieldException when the user has cancelled, and what the lines
// throw.
PrintedPages RunPrintJob(PrintJob& job, const Margins& margins, PrintedLines& lines, CPrintingDialog& dialog);

}  // namespace tarrow
