#include "framework/font_dialog.h"

#include <commdlg.h>

namespace tarrow {

bool RunFontDialog(const FontDialogOptions& options, LOGFONTW& font) {
  LOGFONTW chosen = font;
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
  return true;
}

}  // namespace tarrow
