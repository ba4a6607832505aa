// From the lines of a text to the rows of a page: a line that is longer than a row goes on in the next one.
//
// A row takes exactly the characters that fit, so that columns can be counted. Tabs reach to their stops in
// the line, wherever it is broken: what a tab would span beyond the end of a row, it spans at the front of
// the next. A form feed ends a row, and the next row stands on a new page. Characters are drawn as an edit
// window draws them.
#pragma once

#include "base/text_view.h"
#include "edit/control/line_layout.h"
#include "edit/text/charset.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// A stretch of a row that is drawn in one call.
struct PrintedPiece {
  int x = 0;  // from the left edge of the row
  std::u16string_view text;
  std::span<const int> advances;
};

class RowBreaker {
 public:
  // Pixels; both widths are at least 1.
  RowBreaker(const CharWidths& widths, int rowWidth, int tabWidth);

  // Begins a line, which must stay valid until its last row has been taken, as must `charset`. A form feed at
  // the end of the line before still counts.
  void BeginLine(const TextView& line, const Charset& charset);

  // Goes to the next row; false when the line has no more. An empty line has one empty row; a form feed at
  // either end of a line makes none.
  bool NextRow();

  // The row: whether it stands on a new page, whether nothing of it can be seen, what is drawn, how wide it
  // is. Valid until the next one.
  bool StartsPage() const { return startsPage_; }
  bool IsBlank() const { return isBlank_; }
  std::span<const PrintedPiece> Pieces();
  int Width() const { return width_; }

  // How much work the row was, in bytes or characters.
  int Size() const { return static_cast<int>(units_.size()) + 1; }

 private:
  enum class Stop { kLineEnd, kFull, kFormFeed };
  struct Mark {
    int x;
    std::size_t from;
  };

  Stop Collect();
  bool TakePlainRun();
  void Put(char32_t code, int width);
  void StartPieceIf(bool isNeeded);
  bool TakeTab();
  Pixels RowEnd() const { return rowStart_ + rowWidth_; }

  const CharWidths& widths_;
  int rowWidth_;
  TabStops tabs_;
  const Charset* charset_ = nullptr;

  TextView line_;
  BytePos at_;
  Pixels x_ = 0;          // of `at_` in the line, from its start or the last form feed
  Pixels nextStart_ = 0;  // where in the line the next row begins
  Pixels rowStart_ = 0;   // where the row begins
  bool isDone_ = true;
  bool pageBreak_ = false;

  bool startsPage_ = false;
  bool isBlank_ = true;
  bool needsPiece_ = true;    // the next character begins a piece
  bool isBackwards_ = false;  // the last character runs from right to left
  int width_ = 0;
  std::u16string units_;
  std::vector<int> advances_;
  std::vector<Mark> marks_;
  std::vector<PrintedPiece> pieces_;
};

}  // namespace tarrow
