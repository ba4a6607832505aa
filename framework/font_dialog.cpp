#include "framework/font_dialog.h"

#include "framework/common_dialogs.h"
#include "framework/handle.h"

namespace tarrow {

namespace {

constexpr int kDecipointsPerInch = 720;

int ScreenDpi() {
  ClientDc screen(nullptr);
  return ::GetDeviceCaps(screen, LOGPIXELSY);
}

// What the system draws with for `font`: the dialog knows nothing of a font without a name, of the name of a
// font that another stands in for, nor of a height that is that of a whole line.
LOGFONTW FontInUse(const LOGFONTW& font) {
  LOGFONTW used = font;
  FontHandle made(::CreateFontIndirectW(&font));
  ClientDc dc(nullptr);
  SelectedObject selected(dc, made ? made.Get() : ::GetStockObject(SYSTEM_FIXED_FONT));
  TEXTMETRICW metrics{};
  if (!::GetTextMetricsW(dc, &metrics)) return used;
  ::GetTextFaceW(dc, LF_FACESIZE, used.lfFaceName);
  used.lfHeight = metrics.tmInternalLeading - metrics.tmHeight;
  used.lfWeight = metrics.tmWeight;
  used.lfItalic = metrics.tmItalic;
  used.lfCharSet = metrics.tmCharSet;
  return used;
}

}  // namespace

// The dialog thinks in dots of the screen whatever the device; its point size is what was chosen.
bool RunFontDialog(const FontDialogOptions& options, LOGFONTW& font) {
  LOGFONTW chosen = options.printer ? font : FontInUse(font);
  int dpi = options.printer ? ::GetDeviceCaps(options.printer, LOGPIXELSY) : 0;
  if (dpi > 0) chosen.lfHeight = ::MulDiv(chosen.lfHeight, ScreenDpi(), dpi);
  CHOOSEFONTW choose{};
  choose.lStructSize = sizeof choose;
  choose.hwndOwner = options.owner;
  choose.hDC = options.printer;
  choose.lpLogFont = &chosen;
  choose.Flags =
      CF_FORCEFONTEXIST | CF_FIXEDPITCHONLY | CF_NOSIMULATIONS | CF_INITTOLOGFONTSTRUCT | CF_NOVERTFONTS;
  choose.Flags |= options.printer ? CF_PRINTERFONTS : CF_SCREENFONTS;
  if (!kChooseFont(&choose)) return false;
  font = chosen;
  if (dpi > 0) font.lfHeight = -::MulDiv(choose.iPointSize, dpi, kDecipointsPerInch);
  return true;
}

}  // namespace tarrow
