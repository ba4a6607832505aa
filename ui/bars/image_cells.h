// Pictures cut out of a bitmap and brought to the size at which they are shown, without a device context.
//
// A pixel is 0xAARRGGBB with its colour already multiplied by its alpha, as blending wants it.
#pragma once

#include <cstdint>
#include <vector>

namespace tarrow {

struct PixelImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;  // row by row, from the top

  std::uint32_t& At(int x, int y) { return pixels[static_cast<std::size_t>(y * width + x)]; }
  std::uint32_t At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
};

// An image of no colour, wholly transparent.
[[nodiscard]] PixelImage MakeImage(int width, int height);

// The image at half its size: each pixel the average of four. Width and height are even.
[[nodiscard]] PixelImage Halved(const PixelImage& image);

// The image `times` as large, pixel by pixel.
[[nodiscard]] PixelImage Enlarged(const PixelImage& image, int times);

// Cells of `cell` pixels, `across` to a row, laid out in one row of `count` cells.
[[nodiscard]] PixelImage InOneRow(const PixelImage& image, int cell, int across, int count);

}  // namespace tarrow
