#include "ui/settings/font_choice.h"

#include "framework/handle.h"
#include "framework/unicode.h"

#include <algorithm>

namespace tarrow {

LOGFONTW ToLogFont(const FontChoice& choice) {
  LOGFONTW font{};
  std::wstring face = ToWide(choice.face);
  if (!face.empty() && face.size() < LF_FACESIZE) {
    std::copy(face.begin(), face.end(), font.lfFaceName);
    font.lfHeight = choice.height;
    font.lfWeight = choice.weight;
    font.lfItalic = choice.italic;
    font.lfPitchAndFamily = FIXED_PITCH;
    font.lfCharSet = DEFAULT_CHARSET;
    if (FontHandle made(::CreateFontIndirectW(&font)); made) return font;
  }
  ::GetObjectW(::GetStockObject(SYSTEM_FIXED_FONT), sizeof font, &font);
  return font;
}

FontChoice FromLogFont(const LOGFONTW& font) {
  return {ToUtf8(font.lfFaceName), static_cast<int>(font.lfHeight), static_cast<int>(font.lfWeight),
          font.lfItalic != 0};
}

}  // namespace tarrow
