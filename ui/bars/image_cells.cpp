#include "ui/bars/image_cells.h"

namespace tarrow {

namespace {

// The average of four pixels, channel by channel, rounded.
std::uint32_t Average(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
  std::uint32_t average = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    std::uint32_t sum = (a >> shift & 0xFF) + (b >> shift & 0xFF) + (c >> shift & 0xFF) + (d >> shift & 0xFF);
    average |= (sum + 2) / 4 << shift;
  }
  return average;
}

}  // namespace

PixelImage MakeImage(int width, int height) {
  return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height))};
}

PixelImage Halved(const PixelImage& image) {
  PixelImage half = MakeImage(image.width / 2, image.height / 2);
  for (int y = 0; y < half.height; ++y)
    for (int x = 0; x < half.width; ++x)
      half.At(x, y) = Average(image.At(2 * x, 2 * y), image.At(2 * x + 1, 2 * y), image.At(2 * x, 2 * y + 1),
                              image.At(2 * x + 1, 2 * y + 1));
  return half;
}

PixelImage Enlarged(const PixelImage& image, int times) {
  PixelImage large = MakeImage(image.width * times, image.height * times);
  for (int y = 0; y < large.height; ++y)
    for (int x = 0; x < large.width; ++x) large.At(x, y) = image.At(x / times, y / times);
  return large;
}

PixelImage InOneRow(const PixelImage& image, int cell, int across, int count) {
  PixelImage row = MakeImage(cell * count, cell);
  for (int y = 0; y < cell; ++y)
    for (int x = 0; x < row.width; ++x) {
      int number = x / cell;
      row.At(x, y) = image.At(number % across * cell + x % cell, number / across * cell + y);
    }
  return row;
}

}  // namespace tarrow
