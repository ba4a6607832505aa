#include "ui/bars/tool_images.h"

#include "ui/bars/tool_buttons.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <vector>

namespace tarrow {
namespace {

using Pixels = std::vector<std::uint32_t>;

// What a picture looks like on a white ground.
Pixels Drawn(const ToolImages& images, int image, bool enabled) {
  int size = images.Size();
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  BitmapHandle bitmap(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  MemoryDcHandle dc(::CreateCompatibleDC(nullptr));
  SelectedObject selected(dc.Get(), bitmap.Get());
  ::PatBlt(dc.Get(), 0, 0, size, size, WHITENESS);
  images.Draw(dc.Get(), image, 0, 0, enabled);
  ::GdiFlush();
  auto* first = static_cast<const std::uint32_t*>(bits);
  return Pixels(first, first + size * size);
}

int Darkness(const Pixels& pixels) {
  int sum = 0;
  for (std::uint32_t pixel : pixels) sum += 255 - static_cast<int>(pixel >> 8 & 0xFF);
  return sum;
}

class ToolImagesTest : public testing::TestWithParam<int> {};

TEST_P(ToolImagesTest, EveryPictureIsOneOfItsOwn) {
  ToolImages images(GetParam());
  std::set<Pixels> seen;
  for (int image = 0; image < kToolImageCount; ++image) {
    Pixels pixels = Drawn(images, image, true);
    EXPECT_TRUE(seen.insert(pixels).second) << image << " looks like another";
    EXPECT_EQ(pixels.front() & 0xFFFFFF, 0xFFFFFFu) << image << " is not transparent in its corner";
    EXPECT_GT(Darkness(pixels), 0) << image << " is empty";
    EXPECT_LT(Darkness(Drawn(images, image, false)), Darkness(pixels) / 2)
        << image << " is not pale when it cannot act";
  }
}

INSTANTIATE_TEST_SUITE_P(Resolutions, ToolImagesTest, testing::Values(96, 144, 192, 384));

TEST(ToolImages, AreShownAtSizesAtWhichTheyAreSharp) {
  const int sizes[][2] = {{96, 16}, {120, 16}, {144, 32}, {192, 32}, {288, 32}, {384, 64}};
  for (auto [dpi, size] : sizes) EXPECT_EQ(ToolImages(dpi).Size(), size) << dpi;
}

}  // namespace
}  // namespace tarrow
