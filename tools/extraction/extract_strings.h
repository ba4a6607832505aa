// Lists the stretches of a file that match a pattern, by default runs of printable characters: the strings in
// a program, say. The pattern is tried at each byte in turn, and the scan goes on behind a match.
#pragma once

#include "base/byte_source.h"
#include "base/progress.h"
#include "base/text_sink.h"

#include <cstddef>
#include <string_view>

namespace tarrow {

// The pattern, tried at one place at a time as if the text began there. Implemented over the regular
// expressions, which the extraction does not know.
class AnchoredPattern {
 public:
  struct Match {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  virtual ~AnchoredPattern() = default;

  // Tries the places from..limit-1 of `text` in turn and returns the first at which the pattern matches at
  // least one byte, seeing nothing before that place; {limit, 0} when there is none. `limit` is at most the
  // size of the text; a match may reach beyond it. May throw CYieldException.
  [[nodiscard]] virtual Match FindFirst(std::string_view text, std::size_t from, std::size_t limit) = 0;
};

inline constexpr std::string_view kDefaultStringPattern = "[ -~][ -~][ -~][ -~]+";

// Writes each match to `out` in pieces of at most 128 bytes, a line "name(0x00ff): bytes" each with the
// piece's offset in the file. The file is read through a window: a match is cut where the window ends, at
// least 1024 bytes ahead, and what follows is matched afresh. Throws CFileException of the source, what `out`
// throws, CYieldException, std::bad_alloc; what was found before is written all the same.
void ExtractStrings(ByteSource& source, std::string_view shownName, AnchoredPattern& pattern, TextSink& out,
                    std::string_view lineEnd, Progress* progress);

}  // namespace tarrow
