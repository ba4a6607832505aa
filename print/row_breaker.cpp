#include "print/row_breaker.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

// As many units as a row may have: marks without end take no room.
constexpr std::size_t kMostUnits = 4096;

bool IsPlain(char byte) {
  return byte >= 0x20 && byte < 0x7F;
}

// What of `text` lies in one piece from `at` on.
std::string_view Rest(const TextView& text, BytePos at) {
  auto from = static_cast<std::size_t>(at.value);
  return from < text.head.size() ? text.head.substr(from) : text.tail.substr(from - text.head.size());
}

}  // namespace

RowBreaker::RowBreaker(const CharWidths& widths, int rowWidth, int tabWidth)
    : widths_(widths), rowWidth_(rowWidth), tabs_{{}, tabWidth} {}

void RowBreaker::BeginLine(const TextView& line, const Charset& charset) {
  line_ = line;
  charset_ = &charset;
  at_ = BytePos(0);
  x_ = nextStart_ = 0;
  isDone_ = false;
}

bool RowBreaker::NextRow() {
  while (!isDone_) {
    startsPage_ = pageBreak_;
    Stop stop = Collect();
    width_ = static_cast<int>(std::min(x_, RowEnd()) - rowStart_);
    isDone_ = at_ == line_.End();
    pageBreak_ = stop == Stop::kFormFeed;
    if (!pageBreak_) return true;
    x_ = nextStart_ = 0;
    if (width_ > 0 || !units_.empty()) return true;
  }
  return false;
}

RowBreaker::Stop RowBreaker::Collect() {
  units_.clear();
  advances_.clear();
  marks_.clear();
  isBlank_ = true;
  needsPiece_ = true;
  rowStart_ = nextStart_;
  for (;;) {
    if (TakePlainRun()) continue;
    if (at_ == line_.End()) return Stop::kLineEnd;
    Character c = charset_->At(line_, at_);
    if (c.code == U'\f') {
      ++at_;
      return Stop::kFormFeed;
    }
    if (c.code == U'\t') {
      if (TakeTab()) continue;
      return Stop::kFull;
    }
    int width = IsCombining(c.code) ? 0 : widths_.WidthOf(DisplayedCode(c.code));
    bool fits = x_ + width <= RowEnd() || (units_.empty() && x_ == rowStart_);
    if (!fits || units_.size() >= kMostUnits) {
      nextStart_ = x_;
      return Stop::kFull;
    }
    Put(c.code, width);
    at_ += c.length;
  }
}

// Takes the printable ASCII characters that stand here and fit, where all are of one width.
bool RowBreaker::TakePlainRun() {
  int common = widths_.CommonWidth();
  if (common == 0 || at_ == line_.End()) return false;
  std::string_view bytes = Rest(line_, at_);
  bytes = bytes.substr(0, static_cast<std::size_t>(std::max<Pixels>(0, (RowEnd() - x_) / common)));
  auto end = std::find_if_not(bytes.begin(), bytes.end(), IsPlain);
  auto count = static_cast<std::size_t>(end - bytes.begin());
  if (count == 0) return false;
  StartPieceIf(needsPiece_ || isBackwards_);
  isBackwards_ = false;
  isBlank_ = isBlank_ && std::all_of(bytes.begin(), end, [](char byte) { return byte == ' '; });
  std::size_t before = units_.size();
  units_.resize(before + count);
  std::copy(bytes.begin(), end, units_.begin() + static_cast<std::ptrdiff_t>(before));
  advances_.resize(units_.size(), common);
  x_ += static_cast<Pixels>(count) * common;
  at_ += static_cast<std::int64_t>(count);
  return true;
}

void RowBreaker::StartPieceIf(bool isNeeded) {
  if (isNeeded) marks_.push_back({static_cast<int>(x_ - rowStart_), units_.size()});
  needsPiece_ = false;
}

// A character of a script that runs from right to left is a piece by itself, with its marks.
void RowBreaker::Put(char32_t code, int width) {
  bool isMark = IsCombining(code), isBackwards = IsRightToLeft(code);
  StartPieceIf(needsPiece_ || (!isMark && (isBackwards_ || isBackwards)));
  if (!isMark) isBackwards_ = isBackwards;
  isBlank_ = isBlank_ && code == U' ';
  AppendDrawn(code, width, widths_, marks_.back().from, units_, advances_);
  x_ += width;
}

// Goes to the next stop; false when that lies beyond the row.
bool RowBreaker::TakeTab() {
  ++at_;
  needsPiece_ = true;
  x_ = tabs_.After(x_);
  if (x_ <= RowEnd()) return true;
  nextStart_ = RowEnd();
  x_ = std::min(x_, nextStart_ + rowWidth_);
  return false;
}

std::span<const PrintedPiece> RowBreaker::Pieces() {
  pieces_.clear();
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    std::size_t from = marks_[i].from, to = i + 1 < marks_.size() ? marks_[i + 1].from : units_.size();
    pieces_.push_back({marks_[i].x, std::u16string_view(units_).substr(from, to - from),
                       std::span(advances_).subspan(from, to - from)});
  }
  return pieces_;
}

}  // namespace tarrow
