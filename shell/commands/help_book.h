// The help book on the disk, and opening it in the user's browser.
#pragma once

#include "shell/commands/help_page.h"

#include <windows.h>

#include <string>

namespace tarrow {

// The full path of the book: beside the help file `helpFile`, or else beside the program; empty when there is
// none.
[[nodiscard]] std::string FindHelpBook(const std::string& helpFile);

// Opens the book where `request` wants it. False when the system has nothing to open it with.
bool OpenHelpBook(HWND owner, const std::string& book, HelpRequest request);

}  // namespace tarrow
