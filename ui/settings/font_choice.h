// A font as the settings name it, and as the platform does.
#pragma once

#include "ui/settings/global_settings.h"

#include <windows.h>

namespace tarrow {

// The fixed-pitch font of a choice; the system's own fixed font for an empty choice, and for one that cannot
// be made.
[[nodiscard]] LOGFONTW ToLogFont(const FontChoice& choice);

// The fixed-pitch font of a choice for a printer of `dpi` dots an inch, its height in those dots; for an
// empty choice the platform's fixed font in a size to be read.
[[nodiscard]] LOGFONTW PrinterLogFont(const FontChoice& choice, int dpi);

[[nodiscard]] FontChoice FromLogFont(const LOGFONTW& font);

}  // namespace tarrow
