#include "edit/control/drawn_row.h"

#include <algorithm>

namespace tarrow {
namespace {

// Whether two pieces look alike, wherever they stand.
bool LookAlike(const LinePiece& a, const LinePiece& b) {
  return a.style == b.style && a.width == b.width && a.text == b.text && a.advances == b.advances;
}

}  // namespace

RowChange CompareRows(std::span<const LinePiece> shown, std::span<const LinePiece> wanted, Pixels left,
                      Pixels right) {
  RowChange change;
  std::size_t most = std::min(shown.size(), wanted.size());
  while (change.same < most && shown[change.same].x == wanted[change.same].x &&
         LookAlike(shown[change.same], wanted[change.same]))
    ++change.same;
  if (shown.empty() || wanted.empty()) return change;
  change.by = wanted.back().x - shown.back().x;
  for (; change.same + change.moved < most; ++change.moved) {
    const LinePiece& from = shown[shown.size() - 1 - change.moved];
    const LinePiece& to = wanted[wanted.size() - 1 - change.moved];
    bool isThere = from.x >= left && from.x + from.width <= right;
    if (!isThere || to.x - from.x != change.by || !LookAlike(from, to)) break;
  }
  return change;
}

}  // namespace tarrow
