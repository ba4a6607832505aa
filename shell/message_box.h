// The one routine through which the program talks to its user in a box, and the warning beeps.
#pragma once

#include "base/exceptions.h"
#include "base/text_format.h"

#include <windows.h>

#include <initializer_list>
#include <string>

namespace tarrow {

// Shows string `id` formatted with `args` (MB_* style) under the program's title; returns the button,
// IDCANCEL when memory does not suffice for the text. A string that is missing shows as its number between
// asterisks.
int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args);

// The text for a cause, one of the strings 161 to 173.
[[nodiscard]] std::string FileCauseText(FileCause cause);

// Beeps with the sound of an MB_ICON* style; with `flash` the title bar of that window flashes twice.
void Beep(UINT sound, HWND flash);

}  // namespace tarrow
