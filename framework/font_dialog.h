// The system's dialog for choosing a font.
#pragma once

#include <windows.h>

namespace tarrow {

// Which fonts are offered: those of the screen or of the printer whose device context is given.
struct FontDialogOptions {
  HWND owner = nullptr;
  HDC printer = nullptr;  // null: the fonts of the screen
};

// Lets the user choose a fixed-pitch font that exists, without simulated styles, beginning with `font`.
// Returns whether one was chosen; it then stands in `font`. Heights are in dots of the screen or the printer.
[[nodiscard]] bool RunFontDialog(const FontDialogOptions& options, LOGFONTW& font);

}  // namespace tarrow
