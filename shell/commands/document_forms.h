// The forms in which a file is shown: in an edit window, in hex, as text. Which one the bits of a window ask
// for, and what takes its place when a file is too large for it.
#pragma once

#include "edit/documents/child.h"

#include <cstdint>
#include <string>

namespace tarrow {

// Whether a window that shows a file is what `flags` ask for. A text view will do for a file that fits no
// edit window.
bool ServesFor(const CTwChild& shown, std::uint32_t flags);

// Shows the file `path` (full, lower case) in a new window in front; the user is asked whether he wants a
// view where the form that `flags` ask for does not do. Returns the window, or null: the user has been told
// why, or did not want it. Throws CFileException.
CTwChild* OpenDocument(const DocumentServices& program, const std::string& path, std::uint32_t flags);

// Goes to a line and column, or to an address; false where the form of the window has no such places.
bool GoToPlace(CTwChild& document, const SourcePlace& place);

}  // namespace tarrow
