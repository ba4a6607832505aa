// Where the caret goes: the plain movements of an edit control over a text.
//
// Positions are bytes; every result is a place where a caret may stand. Words here are what Ctrl with an
// arrow, Backspace or Delete takes: a run of letters, digits, "_" and characters beyond ASCII, or a run of
// other visible characters, with the blanks that follow it. Blank-delimited words are what a double click
// takes.
#pragma once

#include "base/units.h"
#include "edit/text/charset.h"
#include "edit/text/text_buffer.h"

namespace tarrow {

// Past the word at `at` and the blanks behind it; stops at line ends, and passes one when it stands there.
BytePos NextWord(const TextView& text, BytePos at, const Charset& charset);

// To the start of the word before `at`, with the same stops.
BytePos PreviousWord(const TextView& text, BytePos at, const Charset& charset);

// The run between blanks around `at` and the blanks behind it, within the line.
TextRange BlankDelimitedWord(const TextView& text, BytePos at);

// The line `count` lines below (above when negative) `line`, kept within the text.
LineNo LineAway(const TextBuffer& buffer, LineNo line, std::int64_t count);

}  // namespace tarrow
