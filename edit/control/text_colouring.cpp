#include "edit/control/text_colouring.h"

namespace tarrow {
namespace {

Colour WindowColour() {
  DWORD colour = ::GetSysColor(COLOR_WINDOW);
  return {GetRValue(colour), GetGValue(colour), GetBValue(colour)};
}

// Whether text in one font takes the same places as in the other.
bool Agree(const FontWidths& a, const FontWidths& b) {
  if (a.LineHeight() != b.LineHeight()) return false;
  for (char32_t code = 0x20; code < 0x7F; ++code)
    if (a.WidthOf(code) != b.WidthOf(code)) return false;
  return true;
}

FontHandle MakeVariant(const FontWidths& plain, const Look& look) {
  LOGFONTW description{};
  if (!::GetObjectW(plain.Font(), sizeof description, &description)) return {};
  if (look.bold) description.lfWeight = FW_BOLD;
  if (look.italic) description.lfItalic = TRUE;
  FontHandle font(::CreateFontIndirectW(&description));
  if (font && !Agree(plain, FontWidths(font.Get()))) font.Reset();
  return font;
}

}  // namespace

void TextColouring::Start(TextBuffer& text, bool isHighContrast) {
  bool isOn = lexer_ && choices_ && !isHighContrast;
  states_.Reset(text, isOn ? lexer_ : nullptr);
  if (isOn) palette_ = PaletteFor(WindowColour(), *choices_);
}

void TextColouring::SetFont(const FontWidths& font) {
  plain_ = &font;
  variants_ = {};
}

HFONT TextColouring::FontOf(const Look& look) {
  Variant& variant = variants_[(look.bold ? 1u : 0u) + (look.italic ? 2u : 0u)];
  bool isPlain = !look.bold && !look.italic;
  if (!isPlain && !variant.isMade) {
    variant.font = MakeVariant(*plain_, look);
    variant.isMade = true;
  }
  return variant.font ? variant.font.Get() : plain_->Font();
}

void TextColouring::Select(HDC dc, Style style, bool isSelected) {
  const Look& look = palette_[static_cast<std::size_t>(style)];
  if (HFONT font = FontOf(look); ::GetCurrentObject(dc, OBJ_FONT) != font) ::SelectObject(dc, font);
  if (look.colour && !isSelected)
    ::SetTextColor(dc, RGB(look.colour->red, look.colour->green, look.colour->blue));
}

}  // namespace tarrow
