// The measures of a font: line height, average width, and how wide each character is drawn.
//
// ASCII is measured once; any other character when it is first met. Pixels.
#pragma once

#include "edit/control/line_layout.h"

#include <windows.h>

#include <array>
#include <unordered_map>

namespace tarrow {

class FontWidths final : public CharWidths {
 public:
  // Measures `font` for the screen or, when given, for another device; both must outlive the object. No font
  // stands for the system's fixed font.
  explicit FontWidths(HFONT font, HDC device = nullptr);

  HFONT Font() const { return font_; }
  int LineHeight() const { return lineHeight_; }
  int AverageWidth() const { return averageWidth_; }

  int WidthOf(char32_t code) const override;
  int CommonWidth() const override { return commonWidth_; }
  bool ReachesBack(char32_t mark) const override;

 private:
  void MeasureAscii(HDC dc);
  int Measure(HDC dc, char32_t code) const;
  template <typename Action>
  auto OnDevice(Action action) const;

  HFONT font_;
  HDC device_;
  int lineHeight_ = 1;
  int averageWidth_ = 1;
  int commonWidth_ = 0;
  std::array<int, 128> ascii_{};
  mutable std::unordered_map<char32_t, int> others_;
  mutable std::unordered_map<char32_t, bool> reachesBack_;
};

}  // namespace tarrow
