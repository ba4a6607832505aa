#include "ui/bars/image_cells.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

PixelImage Counted(int width, int height) {
  PixelImage image = MakeImage(width, height);
  for (std::size_t i = 0; i < image.pixels.size(); ++i) image.pixels[i] = static_cast<std::uint32_t>(i);
  return image;
}

TEST(ImageCells, HalvingAveragesEachChannel) {
  PixelImage image{2, 2, {0xFF000000, 0xFFFF0000, 0x00000000, 0xFF0000FF}};
  EXPECT_EQ(Halved(image).pixels, std::vector<std::uint32_t>{0xBF400040});
}

TEST(ImageCells, HalvingUndoesDoubling) {
  PixelImage image = Counted(6, 4);
  PixelImage back = Halved(Enlarged(image, 2));
  EXPECT_EQ(back.width, 6);
  EXPECT_EQ(back.pixels, image.pixels);
}

TEST(ImageCells, CellsAreTakenRowByRow) {
  PixelImage row = InOneRow(Counted(4, 4), 2, 2, 3);  // two cells of two pixels across, three in all
  EXPECT_EQ(row.width, 6);
  EXPECT_EQ(row.pixels, (std::vector<std::uint32_t>{0, 1, 2, 3, 8, 9, 4, 5, 6, 7, 12, 13}));
}

}  // namespace
}  // namespace tarrow
