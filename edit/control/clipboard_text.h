// Text on the clipboard: in Unicode and in the ANSI code page for everybody, and byte for byte for texts of
// this program, so that what is copied here and pasted here keeps NULs and invalid sequences.
#pragma once

#include "base/text_view.h"
#include "edit/text/charset.h"

#include <windows.h>

#include <optional>
#include <string>

namespace tarrow {

// Replaces the clipboard's contents. False when another program holds the clipboard; throws CMemoryException,
// and the clipboard then keeps what it had.
[[nodiscard]] bool PutOnClipboard(HWND owner, const TextView& text, const Charset& charset);

// The clipboard's text in `charset`; nothing when it holds none or another program holds it. Throws
// CMemoryException.
[[nodiscard]] std::optional<std::string> TextFromClipboard(HWND owner, const Charset& charset);

// The clipboard's text in UTF-16 when `charset` would not get it as bytes of its own; else empty. Throws
// CMemoryException.
[[nodiscard]] std::u16string ForeignTextFromClipboard(HWND owner, const Charset& charset);

// Whether there is text to be had.
[[nodiscard]] bool HasClipboardText();

}  // namespace tarrow
