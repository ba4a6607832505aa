// Lists the stretches of a file that match a pattern, by default runs of printable characters: the strings in
// a program, say. The pattern is tried at each byte in turn, and the scan goes on behind a match.
#pragma once

#include "base/anchored_pattern.h"
#include "base/byte_source.h"
#include "base/progress.h"
#include "base/text_sink.h"

#include <string_view>

namespace tarrow {

inline constexpr std::string_view kDefaultStringPattern = "[ -~][ -~][ -~][ -~]+";

// Writes each match to `out` in pieces of at most 128 bytes, a line "name(0x00ff): bytes" each with the
// piece's offset in the file. The file is read through a window: a match is cut where the window ends, at
// least 1024 bytes ahead, and what follows is matched afresh. Throws CFileException of the source, what `out`
// throws, CYieldException, std::bad_alloc; what was found before is written all the same.
void ExtractStrings(ByteSource& source, std::string_view shownName, AnchoredPattern& pattern, TextSink& out,
                    std::string_view lineEnd, Progress* progress);

}  // namespace tarrow
