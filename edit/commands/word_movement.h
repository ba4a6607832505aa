// Moving by words: where words begin and end, and the eight commands that go there.
//
// A word is a run of word characters (letters, digits and "_" of the text's character set); white space is
// blank, tab, CR, LF, vertical tab and form feed. A move lands on a whole character and never between a CR
// and its LF.
#pragma once

#include "base/text_view.h"
#include "edit/text/charset.h"

namespace tarrow {

enum class WordMove { kForwardStart, kForwardEnd, kBackStart, kBackEnd };

// Where the word that holds `p` starts; a position on anything else is its own start.
BytePos WordStart(TextView text, BytePos p, Charset charset);

// Behind the word at `p`; behind the one character when `p` is on none, but `p` itself at a CR.
BytePos WordEnd(TextView text, BytePos p, Charset charset);

// Where a move from `selection` goes.
BytePos FindWord(TextView text, TextRange selection, WordMove move, Charset charset);

// The selection after a move; extending one keeps its start when it moves forward and its end when it moves
// back.
TextRange MoveByWord(TextView text, TextRange selection, WordMove move, bool extend, Charset charset);

// What a double click at `p` selects.
TextRange WordAround(TextView text, BytePos p, Charset charset);

}  // namespace tarrow
