// The interactive search in the bytes of a file: from the selection in the direction of the find state, and
// once more from the other end if the user wants it. The same rules as in a text in memory (find_text.h).
#pragma once

#include "search/find/file_finder.h"
#include "search/find/find_text.h"

namespace tarrow {

// Returns where the next match lies, or nothing when there is none, the pattern does not compile, or the user
// has had enough; the user has been told. The registers of the state are cleared: no replacement belongs to a
// match in a file. Throws CFileException, what `progress` throws, and std::bad_alloc.
std::optional<FileRange> FindInBytes(FindState& state, ByteSource& file, FileRange selection, Charset charset,
                                     FindDialogue& user, Progress* progress = nullptr);

}  // namespace tarrow
