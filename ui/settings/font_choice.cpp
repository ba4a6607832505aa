#include "ui/settings/font_choice.h"

#include "framework/handle.h"
#include "framework/unicode.h"

#include <algorithm>
#include <iterator>

namespace tarrow {

namespace {

constexpr int kPrinterPoints = 10;
constexpr int kPointsPerInch = 72;

// Without a face when the face of the choice is none that a font can have.
LOGFONTW FixedFont(const FontChoice& choice) {
  LOGFONTW font{};
  std::wstring face = ToWide(choice.face);
  if (face.size() >= LF_FACESIZE) return font;
  std::copy(face.begin(), face.end(), font.lfFaceName);
  font.lfHeight = choice.height;
  font.lfWeight = choice.weight;
  font.lfItalic = choice.italic;
  font.lfPitchAndFamily = FIXED_PITCH;
  font.lfCharSet = DEFAULT_CHARSET;
  return font;
}

}  // namespace

LOGFONTW ToLogFont(const FontChoice& choice) {
  LOGFONTW font = FixedFont(choice);
  if (*font.lfFaceName)
    if (FontHandle made(::CreateFontIndirectW(&font)); made) return font;
  ::GetObjectW(::GetStockObject(SYSTEM_FIXED_FONT), sizeof font, &font);
  return font;
}

// The stock font has the size of the screen's dots, on paper a millimetre; only its face is taken. A
// printer's own font of that name may have no more than the letters of the West, an outline font has other
// scripts too.
LOGFONTW PrinterLogFont(const FontChoice& choice, int dpi) {
  LOGFONTW font = FixedFont(choice);
  if (*font.lfFaceName) return font;
  LOGFONTW stock{};
  ::GetObjectW(::GetStockObject(ANSI_FIXED_FONT), sizeof stock, &stock);
  std::copy(std::begin(stock.lfFaceName), std::end(stock.lfFaceName), font.lfFaceName);
  font.lfHeight = -::MulDiv(kPrinterPoints, dpi, kPointsPerInch);
  font.lfOutPrecision = OUT_TT_ONLY_PRECIS;
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfCharSet = DEFAULT_CHARSET;
  return font;
}

FontChoice FromLogFont(const LOGFONTW& font) {
  return {ToUtf8(font.lfFaceName), static_cast<int>(font.lfHeight), static_cast<int>(font.lfWeight),
          font.lfItalic != 0};
}

}  // namespace tarrow
