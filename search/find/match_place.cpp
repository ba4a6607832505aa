#include "search/find/match_place.h"

#include <cstdlib>

namespace tarrow {
namespace {

int Distance(const Box& a, const Box& b) {
  return std::abs(a.left - b.left) + std::abs(a.top - b.top);
}

}  // namespace

LineNo TopForMatch(const LineView& view, LineNo first, LineNo last) {
  std::int32_t margin = view.lines / 4, top = view.top.value;
  std::int32_t lowest = first.value - margin;                   // the top line with a quarter above
  std::int32_t highest = last.value + margin + 1 - view.lines;  // and with a quarter below
  if (top >= highest && top <= lowest) return view.top;
  std::int32_t wanted = top > lowest ? lowest : std::min(highest, lowest);
  // Where the text ends there is nothing more to show below; it stays as it is, or as far as it is needed.
  std::int32_t farthest = std::max(view.last.value + 1 - view.lines, std::min(top, lowest));
  return LineNo(std::max(std::min(wanted, farthest), 0));
}

Box MovedWithin(Box box, const Box& area) {
  int x = std::max(std::min(box.left, area.right - box.Width()), area.left);
  int y = std::max(std::min(box.top, area.bottom - box.Height()), area.top);
  return box.At(x, y);
}

Box MovedAside(Box box, const Box& match, const Box& area) {
  box = MovedWithin(box, area);
  if (!box.Meets(match)) return box;
  const Box kPlaces[] = {box.At(box.left, match.top - box.Height()), box.At(box.left, match.bottom),
                         box.At(match.left - box.Width(), box.top), box.At(match.right, box.top)};
  Box best = box;
  for (const Box& place : kPlaces) {
    bool isFree = MovedWithin(place, area) == place;
    if (isFree && (best == box || Distance(place, box) < Distance(best, box))) best = place;
  }
  return best;
}

}  // namespace tarrow
