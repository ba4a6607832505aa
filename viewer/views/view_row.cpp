#include "viewer/views/view_row.h"

#include "edit/control/line_layout.h"
#include "edit/text/charset.h"

#include <algorithm>

namespace tarrow {
namespace {

struct CodeRange {
  char32_t first, last;
};

// The blocks whose characters are drawn as wide as they are high.
constexpr CodeRange kWide[] = {
    {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},
    {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},
    {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

bool IsWide(char32_t code) {
  auto found = std::lower_bound(std::begin(kWide), std::end(kWide), code,
                                [](const CodeRange& range, char32_t c) { return range.last < c; });
  return found != std::end(kWide) && found->first <= code;
}

// Before this one no character is written from right to left.
constexpr char32_t kFirstTurning = 0x590;

// Beyond ASCII all that is no blank counts as a letter.
bool IsWordUnit(char16_t unit) {
  bool isLetter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
  return isLetter || (unit >= u'0' && unit <= u'9') || unit == u'_' || unit > 0xBF;
}

}  // namespace

int CellsOf(char32_t code) {
  if (code < kWide[0].first) return code >= 0x300 && IsCombining(code) ? 0 : 1;
  if (IsCombining(code)) return 0;
  return IsWide(code) ? 2 : 1;
}

void ViewRow::Clear() {
  text_.clear();
  cells_.clear();
  columns_ = 0;
  mayTurn_ = false;
}

void ViewRow::AppendAscii(std::string_view text) {
  std::size_t before = text_.size();
  text_.resize(before + text.size());
  std::copy(text.begin(), text.end(), text_.begin() + static_cast<std::ptrdiff_t>(before));
  if (!IsPlain()) cells_.resize(text_.size(), 1);
  columns_ += static_cast<int>(text.size());
}

void ViewRow::AppendPlain(std::u16string_view text) {
  text_.append(text);
  if (!IsPlain()) cells_.resize(text_.size(), 1);
  columns_ += static_cast<int>(text.size());
}

void ViewRow::Append(char32_t code, int cells) {
  std::size_t before = text_.size();
  AppendUtf16(code, text_);
  mayTurn_ |= code >= kFirstTurning;
  columns_ += cells;
  if (IsPlain() && cells == 1 && text_.size() == before + 1) return;
  cells_.resize(before, 1);
  cells_.push_back(static_cast<std::uint8_t>(cells));
  cells_.resize(text_.size(), 0);
}

void ViewRow::AppendBlanks(int count) {
  text_.append(static_cast<std::size_t>(count), u' ');
  if (!IsPlain()) cells_.resize(text_.size(), 1);
  columns_ += count;
}

ViewRow::Place ViewRow::PlaceAt(int column) const {
  if (IsPlain()) {
    int at = std::clamp(column, 0, columns_);
    return {static_cast<std::size_t>(at), at};
  }
  Place place{0, 0};
  while (place.unit < cells_.size() && place.column < column) place.column += cells_[place.unit++];
  while (place.column > 0 && place.unit < cells_.size() && cells_[place.unit] == 0) ++place.unit;
  return place;
}

int ViewRow::SnapForward(int column) const {
  return PlaceAt(column).column;
}

int ViewRow::SnapBack(int column) const {
  if (IsPlain()) return std::clamp(column, 0, columns_);
  int at = 0;
  for (std::size_t unit = 0; unit < cells_.size() && at + cells_[unit] <= column; ++unit) at += cells_[unit];
  return at;
}

ColumnSpan ViewRow::WordAt(int column) const {
  int from = SnapBack(column), to = SnapForward(from + 1);
  auto isWord = [&](int at) {
    Place place = PlaceAt(at);
    return place.unit < text_.size() && IsWordUnit(text_[place.unit]);
  };
  if (!isWord(from)) return {from, to};
  while (from > 0 && isWord(SnapBack(from - 1))) from = SnapBack(from - 1);
  while (to < columns_ && isWord(to)) to = SnapForward(to + 1);
  return {from, to};
}

CellPiece ViewRow::Piece(ColumnSpan span) const {
  Place from = PlaceAt(span.from), to = PlaceAt(SnapBack(span.to));
  CellPiece piece;
  piece.column = from.column;
  if (to.unit <= from.unit) return piece;
  std::size_t count = to.unit - from.unit;
  piece.columns = to.column - from.column;
  piece.text = std::u16string_view(text_).substr(from.unit, count);
  if (!IsPlain()) piece.cells = std::span(cells_).subspan(from.unit, count);
  piece.mayTurn = mayTurn_;
  return piece;
}

}  // namespace tarrow
