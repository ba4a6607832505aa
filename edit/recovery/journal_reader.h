// Reading a journal that somebody left behind: what it holds, and its text.
//
// Whatever the bytes are, reading ends; a journal is believed as far as its frames are good, and a frame that
// would change what is not there counts as a bad one. Sizes are bytes.
#pragma once

#include "base/byte_source.h"
#include "edit/recovery/journal_format.h"
#include "edit/text/text_buffer.h"

#include <cstdint>

namespace tarrow {

struct JournalState {
  enum class Kind {
    kUnreadable,  // damaged, of another version, or no journal at all
    kUnfinished,  // its writing was broken off before it held a whole text
    kWhole,
  };

  Kind kind = Kind::kUnreadable;
  JournalDescription description;
  std::uint64_t time = 0;  // of the last good frame
  std::int32_t size = 0;   // of the text then
};

// Reads all of a journal without making its text. Throws CFileException.
[[nodiscard]] JournalState ReadJournalState(ByteSource& journal);

// The text of a journal that is whole, with nothing to undo. Throws CFileException, and CMemoryException when
// it does not fit; kEndOfFile when it is not whole.
[[nodiscard]] TextBuffer ReplayJournal(ByteSource& journal);

}  // namespace tarrow
