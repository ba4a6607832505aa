#include "print/page_layout.h"

#include <algorithm>
#include <limits>

namespace tarrow {
namespace {

// The characters of a row fill whole cells, so that a pixel more or less makes no difference.
int RowWidth(const PageFormat& format) {
  return std::max(1, format.area.Width() / format.cellWidth) * format.cellWidth;
}

int XOf(HeaderPlace place, const PageArea& area, int width) {
  switch (place) {
    case HeaderPlace::kLeft:
      return area.left;
    case HeaderPlace::kCentre:
      return std::max(area.left, area.left + (area.Width() - width) / 2);
    case HeaderPlace::kRight:
      return std::max(area.left, area.right - width);
  }
  return area.left;
}

constexpr int kNoEnd = std::numeric_limits<int>::max() / 2;

}  // namespace

PageLayout::PageLayout(const PageFormat& format, PrintSurface& surface, Progress* progress)
    : format_(format),
      surface_(surface),
      ticker_(progress),
      rows_(surface.Widths(), RowWidth(format), format.tabSize * format.cellWidth),
      bottom_(format.area.bottom - (format.footer.empty() ? 0 : 2 * format.lineHeight)) {}

int PageLayout::Print(PrintedLines& lines) {
  bool goesOn = true;
  while (goesOn) {
    std::optional<TextView> line = lines.Next();
    if (!line) break;
    goesOn = PlaceRows(*line, lines.LineCharset());
  }
  if (page_ == 0) BeginPage();
  EndPage();
  return drawn_;
}

// These return false when the last page that is wanted is full.
bool PageLayout::PlaceRows(const TextView& line, const Charset& charset) {
  rows_.BeginLine(line, charset);
  while (rows_.NextRow()) {
    ticker_.Tick(rows_.Size());
    if (!PlaceRow()) return false;
  }
  return true;
}

bool PageLayout::PlaceRow() {
  if (rows_.StartsPage()) {
    EndPage();
    blankRows_ = 0;
  }
  if (rows_.IsBlank()) {
    ++blankRows_;
    return true;
  }
  for (; blankRows_ > 0; --blankRows_)
    if (!NewRow()) return false;
  if (!NewRow()) return false;
  if (IsDrawn()) DrawRow(rows_, format_.area.left, y_ - format_.lineHeight);
  return true;
}

// However little room there is, a page has a row.
bool PageLayout::NewRow() {
  if (isOpen_ && rowsOnPage_ > 0 && y_ + format_.lineHeight > bottom_) EndPage();
  if (!isOpen_ && !BeginPage()) return false;
  y_ += format_.lineHeight;
  ++rowsOnPage_;
  return true;
}

bool PageLayout::BeginPage() {
  if (page_ >= format_.range.last) return false;
  ++page_;
  isOpen_ = true;
  rowsOnPage_ = 0;
  y_ = format_.area.top;
  if (IsDrawn()) {
    surface_.BeginPage(page_);
    ++drawn_;
  }
  if (format_.header.empty()) return true;
  DrawHeader(format_.header, y_);
  y_ += 2 * format_.lineHeight;
  return true;
}

void PageLayout::EndPage() {
  if (!isOpen_) return;
  if (!format_.footer.empty()) DrawHeader(format_.footer, bottom_ + format_.lineHeight);
  isOpen_ = false;
  if (IsDrawn()) surface_.EndPage();
}

void PageLayout::DrawHeader(const std::string& pattern, int y) {
  if (!IsDrawn()) return;
  for (HeaderPiece& piece : ExpandHeader(pattern, format_.fields, page_)) {
    // A header is one line, whatever its pattern holds.
    std::replace_if(
        piece.text.begin(), piece.text.end(), [](unsigned char byte) { return byte < 0x20; }, ' ');
    RowBreaker row(surface_.Widths(), kNoEnd, format_.cellWidth);
    Charset utf8;
    row.BeginLine(std::string_view(piece.text), utf8);
    if (row.NextRow()) DrawRow(row, XOf(piece.place, format_.area, row.Width()), y);
  }
}

void PageLayout::DrawRow(RowBreaker& row, int left, int y) {
  for (const PrintedPiece& piece : row.Pieces()) surface_.Draw(left + piece.x, y, piece.text, piece.advances);
}

}  // namespace tarrow
