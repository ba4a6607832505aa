// A font as the settings name it, and as the platform does.
#pragma once

#include "ui/settings/global_settings.h"

#include <windows.h>

namespace tarrow {

// The fixed-pitch font of a choice; the system's own fixed font for an empty choice, and for one that cannot
// be made.
[[nodiscard]] LOGFONTW ToLogFont(const FontChoice& choice);

[[nodiscard]] FontChoice FromLogFont(const LOGFONTW& font);

}  // namespace tarrow
