// LeftTexts: the texts that programs which no longer run have left behind.
//
// Who claims them holds their journals until he lets go of them, so that no other program offers them at the
// same time, and nobody can remove what a running program writes.
#pragma once

#include "edit/recovery/journal_disk.h"
#include "edit/recovery/journal_reader.h"

#include <memory>
#include <vector>

namespace tarrow {

struct LeftText {
  JournalState state;                               // always whole
  std::vector<std::unique_ptr<JournalFile>> files;  // of the text; the first holds the newest of it
};

// All of them, the last one written first. Journals without a whole text are removed: what they are of is
// whole elsewhere, or was begun a moment before the end. One that cannot be read, damaged or of another
// version, is left as it is.
[[nodiscard]] std::vector<LeftText> ClaimLeftTexts(JournalDisk& disk);

// The text. Throws CFileException and CMemoryException; it is as it was then.
[[nodiscard]] TextBuffer RecoverText(LeftText& left);

// Removes the journals of a text.
void DiscardText(LeftText& left);

}  // namespace tarrow
