#include "print/page_area.h"

#include <cstdint>

namespace tarrow {
namespace {

// A length in tenths of a millimetre as pixels, along a side of so many of each.
std::int64_t Pixels(int length, int pixels, int mm10) {
  return mm10 > 0 ? std::int64_t{pixels} * length / mm10 : 0;
}

int Plausible(std::int64_t value, std::int64_t least, std::int64_t most, int otherwise) {
  return value < least || value > most ? otherwise : static_cast<int>(value);
}

}  // namespace

PageArea AreaWithin(const Margins& margins, const PageMetrics& page) {
  auto across = [&](int length) { return Pixels(length, page.width, page.widthMm10); };
  auto down = [&](int length) { return Pixels(length, page.height, page.heightMm10); };
  std::int64_t width = page.width, height = page.height;
  return {Plausible(across(margins.left) - page.offsetX, 0, width / 3, 0),
          Plausible(down(margins.top) - page.offsetY, 0, height / 3, 0),
          Plausible(width - across(margins.right) + page.extraRight, 2 * width / 3, width, page.width),
          Plausible(page.extraBottom - down(margins.bottom) + height, 2 * height / 3, height, page.height)};
}

}  // namespace tarrow
