#include "ui/bars/tool_images.h"

#include "framework/platform.h"
#include "framework/wnd.h"
#include "resources/resource.h"
#include "ui/bars/image_cells.h"
#include "ui/bars/tool_buttons.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr int kCell = 32;   // pixels of a picture in the bitmap
constexpr int kAcross = 8;  // pictures in a row of it
constexpr std::uint32_t kTransparentColor = 0xFF00FF;
constexpr BYTE kPale = 90;  // of 255

bool NeedsMonochrome(HDC screen) {
  int bits = ::GetDeviceCaps(screen, BITSPIXEL) * ::GetDeviceCaps(screen, PLANES);
  return IsHighContrast() || bits < 4;
}

BITMAPINFO TopDown(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  return info;
}

// The bitmap as 0x00RRGGBB.
PixelImage LoadPixels(HDC screen, int resource) {
  HANDLE loaded =
      ::LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
  BitmapHandle bitmap(static_cast<HBITMAP>(loaded));
  PixelImage image = MakeImage(kCell * kAcross, kCell * ((kToolImageCount + kAcross - 1) / kAcross));
  BITMAPINFO info = TopDown(image.width, image.height);
  ::GetDIBits(screen, bitmap.Get(), 0, static_cast<UINT>(image.height), image.pixels.data(), &info,
              DIB_RGB_COLORS);
  return image;
}

// The pictures in full size, with their transparency.
PixelImage LoadPictures(HDC screen) {
  bool mono = NeedsMonochrome(screen);
  PixelImage image = LoadPixels(screen, mono ? IDB_TOOLS_MONO : IDB_TOOLS_COLOR);
  COLORREF text = ::GetSysColor(COLOR_BTNTEXT);
  std::uint32_t ink = RGB(GetBValue(text), GetGValue(text), GetRValue(text));
  for (std::uint32_t& pixel : image.pixels) {
    std::uint32_t color = pixel & 0xFFFFFF;
    bool transparent = mono ? color != 0 : color == kTransparentColor;
    pixel = transparent ? 0 : 0xFF000000 | (mono ? ink : color);
  }
  return InOneRow(image, kCell, kAcross, kToolImageCount);
}

// Half the size up to 125 %, the size itself up to 200 %, twice that beyond.
PixelImage Fitted(const PixelImage& image, int dpi) {
  return dpi < 132 ? Halved(image) : Enlarged(image, std::max(1, (dpi + 32) / 192));
}

BitmapHandle MakeBitmap(HDC screen, const PixelImage& image) {
  BITMAPINFO info = TopDown(image.width, image.height);
  void* bits = nullptr;
  BitmapHandle bitmap(::CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (bits) std::ranges::copy(image.pixels, static_cast<std::uint32_t*>(bits));
  return bitmap;
}

}  // namespace

ToolImages::ToolImages(int dpi) {
  ClientDc screen(nullptr);
  PixelImage images = Fitted(LoadPictures(screen), dpi);
  size_ = images.height;
  bitmap_ = MakeBitmap(screen, images);
  dc_.Reset(::CreateCompatibleDC(screen));
}

void ToolImages::Draw(HDC dc, int image, int left, int top, bool enabled) const {
  SelectedObject bitmap(dc_.Get(), bitmap_.Get());
  BLENDFUNCTION blend{AC_SRC_OVER, 0, enabled ? BYTE{255} : kPale, AC_SRC_ALPHA};
  ::GdiAlphaBlend(dc, left, top, size_, size_, dc_.Get(), image * size_, 0, size_, size_, blend);
}

}  // namespace tarrow
