// The layout of a printed document: its lines on pages, between header and footer.
//
// A page is started when there is something to put on it, so none is printed for blank lines at the end of a
// document or for a form feed behind the last line. A document without any text is one page. Pages before the
// first one wanted are laid out but not drawn; behind the last one wanted nothing is read.
#pragma once

#include "base/progress.h"
#include "edit/documents/printable.h"
#include "print/header_text.h"
#include "print/page_area.h"
#include "print/print_surface.h"
#include "print/row_breaker.h"

namespace tarrow {

struct PageRange {
  int first = 1;
  int last = 32767;
};

// What the pages of a job are like. Pixels.
struct PageFormat {
  PageArea area;
  int cellWidth = 1;   // of the letter H
  int lineHeight = 1;  // of the letter H
  int tabSize = 8;     // columns
  std::string header;
  std::string footer;
  HeaderFields fields;
  PageRange range;
};

class PageLayout {
 public:
  // All but `progress`, which may be null, must outlive the object.
  PageLayout(const PageFormat& format, PrintSurface& surface, Progress* progress);

  // Prints the lines and returns how many pages were drawn. Throws what the surface, the lines or the
  // progress throw; a page may be begun then.
  int Print(PrintedLines& lines);

  // How many pages there were, as far as the lines were read.
  int Pages() const { return page_; }

 private:
  bool PlaceRows(const TextView& line, const Charset& charset);
  bool PlaceRow();
  bool NewRow();
  bool BeginPage();
  void EndPage();
  void DrawHeader(const std::string& pattern, int y);
  void DrawRow(RowBreaker& row, int left, int y);
  bool IsDrawn() const { return page_ >= format_.range.first; }

  const PageFormat& format_;
  PrintSurface& surface_;
  ProgressTicker ticker_;
  RowBreaker rows_;
  int bottom_;     // of the text area
  int page_ = 0;   // the number of the page that is open, or was last
  int drawn_ = 0;  // pages
  bool isOpen_ = false;
  int y_ = 0;  // where the next row goes
  int rowsOnPage_ = 0;
  int blankRows_ = 0;  // read, but not placed before something follows them
};

}  // namespace tarrow
