// What becomes of a typed character: refused, put over the one at the caret, or inserted.
#pragma once

#include "base/text_view.h"
#include "edit/commands/edit_outcome.h"
#include "edit/text/charset.h"

namespace tarrow {

// Whether a read-only window answers the character with its own refusal. Control characters (Enter,
// Backspace, Tab) are left to the control, which refuses them silently.
constexpr bool IsRefusedWhenReadOnly(std::uint32_t character) {
  return character >= ' ';
}

// What Ctrl+Backspace types: a control character, whatever its number.
inline constexpr std::uint32_t kDeleteCharacter = 0x7F;

// What a typed character replaces in overtype mode: the character at the caret, but nothing at the end of a
// line, and the selection when there is one. Control characters replace nothing beyond the selection.
TextRange OvertypeRange(TextView text, TextRange selection, std::uint32_t character, Charset charset);

// What the Tab key puts in place of the selection where spaces stand for tabs: as many as reach from there to
// the next tab stop. A character of the line is a column wide.
EditOutcome TypeTabAsSpaces(TextView text, TextRange selection, int tabSize, Charset charset);

}  // namespace tarrow
