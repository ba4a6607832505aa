#include "edit/control/font_widths.h"

#include "framework/handle.h"

#include <algorithm>

namespace tarrow {

// Runs `action` on the device's context with the font selected into it.
template <typename Action>
auto FontWidths::OnDevice(Action action) const {
  auto run = [&](HDC dc) {
    SelectedObject selected(dc, font_);
    return action(dc);
  };
  return device_ ? run(device_) : run(ClientDc(nullptr));
}

FontWidths::FontWidths(HFONT font, HDC device)
    : font_(font ? font : static_cast<HFONT>(::GetStockObject(SYSTEM_FIXED_FONT))), device_(device) {
  TEXTMETRICW metrics{};
  OnDevice([&](HDC dc) {
    ::GetTextMetricsW(dc, &metrics);
    MeasureAscii(dc);
  });
  lineHeight_ = std::max<int>(1, metrics.tmHeight + metrics.tmExternalLeading);
  averageWidth_ = std::max<int>(1, metrics.tmAveCharWidth);
  bool isFixed = std::all_of(ascii_.begin(), ascii_.end(), [&](int width) { return width == ascii_['x']; });
  if (isFixed) averageWidth_ = commonWidth_ = ascii_['x'];
}

// All in one call: every window measures its font when it is opened.
void FontWidths::MeasureAscii(HDC dc) {
  std::array<wchar_t, 128> text{};
  for (char32_t code = 0; code < text.size(); ++code) text[code] = static_cast<wchar_t>(DisplayedCode(code));
  SIZE size{};
  auto count = static_cast<int>(text.size());
  ::GetTextExtentExPointW(dc, text.data(), count, 0, nullptr, ascii_.data(), &size);
  for (std::size_t i = ascii_.size(); i-- > 1;) ascii_[i] -= ascii_[i - 1];
  for (int& width : ascii_) width = std::max(1, width);
}

int FontWidths::Measure(HDC dc, char32_t code) const {
  std::u16string text;
  AppendUtf16(code, text);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()),
                          &size);
  return std::max<int>(1, size.cx);
}

int FontWidths::WidthOf(char32_t code) const {
  if (code < ascii_.size()) return ascii_[code];
  auto [found, isNew] = others_.try_emplace(code, 0);
  if (isNew) found->second = OnDevice([&](HDC dc) { return Measure(dc, code); });
  return found->second;
}

// Fonts that are no outlines do not tell; their marks fill a cell as a letter does.
bool FontWidths::ReachesBack(char32_t mark) const {
  auto [found, isNew] = reachesBack_.try_emplace(mark, false);
  if (!isNew || mark > 0xFFFF) return found->second;
  ABC ink{};
  bool isKnown = OnDevice([&](HDC dc) { return ::GetCharABCWidthsW(dc, mark, mark, &ink) != 0; });
  return found->second = isKnown && ink.abcA + static_cast<int>(ink.abcB) / 2 < 0;
}

}  // namespace tarrow
