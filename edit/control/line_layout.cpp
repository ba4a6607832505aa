#include "edit/control/line_layout.h"

#include "base/byte_scan.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

struct CodeRange {
  char32_t first, last;
};

// The blocks whose characters are, in the main, marks upon the character before them.
constexpr CodeRange kCombining[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x05BF, 0x05BF},   {0x05C1, 0x05C2},
    {0x05C4, 0x05C5}, {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},   {0x06D6, 0x06DC},
    {0x06DF, 0x06E4}, {0x0E31, 0x0E31}, {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E},   {0x1AB0, 0x1AFF},
    {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},   {0x20D0, 0x20FF},
    {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}, {0xE0100, 0xE01EF},
};

constexpr CodeRange kRightToLeft[] = {
    {0x0590, 0x08FF}, {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFE}, {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF},
};

template <std::size_t N>
bool IsIn(const CodeRange (&ranges)[N], char32_t code) {
  if (code < ranges[0].first) return false;
  auto found = std::lower_bound(std::begin(ranges), std::end(ranges), code,
                                [](const CodeRange& range, char32_t c) { return range.last < c; });
  return found != std::end(ranges) && found->first <= code;
}

// Long enough that scanning pays, short enough that nothing is scanned for a window's width in vain.
constexpr std::size_t kScanBlock = 512;

constexpr std::int32_t kLongestCharacter = 4;

// From this length on, in bytes, a line is worth checkpoints.
constexpr std::int32_t kLongLine = 16384;

// No more characters than this are drawn of a line: marks without end take no room.
constexpr std::size_t kMostDrawn = 32768;

// As many units as one call may draw.
constexpr std::size_t kLongestPiece = 4096;

}  // namespace

char32_t DisplayedCode(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code < 0xA0) ? U'\u00B7' : code;
}

bool IsCombining(char32_t code) {
  return IsIn(kCombining, code);
}

bool IsRightToLeft(char32_t code) {
  return IsIn(kRightToLeft, code);
}

Pixels TabStops::After(Pixels x) const {
  auto found = std::upper_bound(stops.begin(), stops.end(), x);
  return found != stops.end() ? *found : (x / every + 1) * every;
}

void LayoutCheckpoints::Enter(BytePos line) {
  if (line == line_) return;
  line_ = line;
  places_.clear();
}

void LayoutCheckpoints::Truncate(BytePos at) {
  // New bytes may join the ones before them to another character.
  while (!places_.empty() && places_.back().at + kLongestCharacter > at) places_.pop_back();
}

LayoutCheckpoints::Place LayoutCheckpoints::Before(BytePos until, Pixels x) const {
  auto found = std::partition_point(places_.begin(), places_.end(),
                                    [&](const Place& place) { return place.at <= until && place.x <= x; });
  return found == places_.begin() ? Place{line_, 0} : *std::prev(found);
}

void LayoutCheckpoints::Pass(Place place) {
  BytePos last = places_.empty() ? line_ : places_.back().at;
  if (place.at - last >= kDistance) places_.push_back(place);
}

LineLayout::LineLayout(const TextView& text, TextRange line, const Charset& charset, const CharWidths& widths,
                       const TabStops& tabs, LayoutCheckpoints* checkpoints)
    : text_(text),
      line_(line),
      charset_(charset),
      widths_(widths),
      tabs_(tabs),
      checkpoints_(line.Length() >= kLongLine ? checkpoints : nullptr) {
  if (checkpoints_) checkpoints_->Enter(line.start);
}

// How many bytes from `at` on are ASCII and no tab, looking no further than a block.
std::int32_t LineLayout::PlainRun(BytePos at, BytePos until) const {
  auto from = static_cast<std::size_t>(at.value), to = static_cast<std::size_t>(until.value);
  std::size_t head = text_.head.size();
  std::size_t most = std::min(to - from, kScanBlock);
  std::string_view bytes = from < head ? text_.head.substr(from, most) : text_.tail.substr(from - head, most);
  bytes = bytes.substr(0, FindHighByte(bytes));
  return static_cast<std::int32_t>(FindByte(bytes, '\t'));
}

LineLayout::Spot LineLayout::SpotAt(BytePos at, Pixels x) const {
  if (at >= line_.end) return {line_.end, x, {}, 0};
  Character c = charset_.At(text_, at);
  c.length = std::min(c.length, line_.end - at);
  if (c.code == U'\t') return {at, x, c, static_cast<int>(tabs_.After(x) - x)};
  return {at, x, c, IsCombining(c.code) ? 0 : widths_.WidthOf(DisplayedCode(c.code))};
}

// Goes from the start of the line, or a checkpoint, to `until` or to the character that covers `x`, whichever
// comes first. Runs of plain characters are passed without looking at each.
LineLayout::Spot LineLayout::Walk(BytePos until, Pixels x) const {
  int common = widths_.CommonWidth();
  auto [at, reached] =
      checkpoints_ ? checkpoints_->Before(until, x) : LayoutCheckpoints::Place{line_.start, 0};
  for (;;) {
    if (checkpoints_) checkpoints_->Pass({at, reached});
    if (common && at < until) {
      Pixels most = (x - reached) / common;
      auto passed = std::min<Pixels>(PlainRun(at, until), std::max<Pixels>(most, 0));
      at += passed;
      reached += passed * common;
    }
    Spot spot = SpotAt(at, reached);
    if (at >= until || (spot.width > 0 && reached + spot.width > x)) return spot;
    at += spot.character.length;
    reached += spot.width;
  }
}

BytePos LineLayout::Nearest(Pixels x) const {
  Spot spot = Covering(x);
  return x - spot.x < (spot.width + 1) / 2 ? spot.at : spot.at + spot.character.length;
}

void AppendDrawn(char32_t code, int width, const CharWidths& widths, std::size_t from, std::u16string& text,
                 std::vector<int>& advances) {
  auto front = advances.rend() - static_cast<std::ptrdiff_t>(from);
  auto letter = std::find_if(advances.rbegin(), front, [](int n) { return n != 0; });
  if (IsCombining(code) && letter != front && !widths.ReachesBack(code)) width = std::exchange(*letter, 0);
  AppendUtf16(DisplayedCode(code), text);
  advances.push_back(width);
  advances.resize(text.size(), 0);
}

std::vector<LinePiece> LineLayout::Pieces(Pixels left, Pixels right, const std::vector<BytePos>& cuts) const {
  std::vector<LinePiece> pieces;
  auto cut = cuts.begin();
  bool isAlone = true;  // whether the piece so far takes no further character
  std::size_t drawn = 0;
  for (Spot spot = Covering(left); spot.character.length && spot.x < right && drawn++ < kMostDrawn;
       spot = SpotAt(spot.at + spot.character.length, spot.x + spot.width)) {
    char32_t code = spot.character.code;
    bool isTab = code == U'\t', isBackwards = IsRightToLeft(code);
    while (cut != cuts.end() && *cut < spot.at) ++cut;
    bool isCut = cut != cuts.end() && *cut == spot.at;
    bool isFull = !pieces.empty() && pieces.back().text.size() >= kLongestPiece;
    if (pieces.empty() || isCut || isTab || isFull || ((isAlone || isBackwards) && !IsCombining(code)))
      pieces.push_back({{spot.at, spot.at}, spot.x, 0, {}, {}, {}});
    isAlone = isTab || isBackwards;
    LinePiece& piece = pieces.back();
    piece.range.end = spot.at + spot.character.length;
    piece.width += spot.width;
    if (!isTab) AppendDrawn(code, spot.width, widths_, 0, piece.text, piece.advances);
  }
  return pieces;
}

}  // namespace tarrow
