#include "framework/font_dialog.h"

#include "framework/handle.h"

#include <commdlg.h>

namespace tarrow {

namespace {

constexpr int kDecipointsPerInch = 720;

int ScreenDpi() {
  ClientDc screen(nullptr);
  return ::GetDeviceCaps(screen, LOGPIXELSY);
}

}  // namespace

// The dialog thinks in dots of the screen whatever the device; its point size is what was chosen.
bool RunFontDialog(const FontDialogOptions& options, LOGFONTW& font) {
  LOGFONTW chosen = font;
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
  if (!::ChooseFontW(&choose)) return false;
  font = chosen;
  if (dpi > 0) font.lfHeight = -::MulDiv(choose.iPointSize, dpi, kDecipointsPerInch);
  return true;
}

}  // namespace tarrow
