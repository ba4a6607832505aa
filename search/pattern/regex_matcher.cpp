#include "search/pattern/regex_matcher.h"

#include "search/pattern/backtracker.h"
#include "search/pattern/prepared_search.h"

#include <new>

namespace tarrow {

std::int32_t MatchAt(CompiledPattern& pattern, const TextView& text, BytePos position, BytePos stop,
                     MatchRegisters* registers, Progress* progress) {
  try {
    MatchProgram& program = ProgramOf(pattern);
    ProgressTicker ticker(progress);
    return WithText(text, [&](const auto& accessible) {
      Backtracker matcher(pattern, program, accessible, 0, std::min(stop, text.End()).value, ticker);
      std::int32_t length = matcher.Run(position.value);
      if (length >= 0 && registers) matcher.Report(position.value, *registers);
      return length;
    });
  } catch (const std::bad_alloc&) {
    return kMatcherOverflow;
  }
}

}  // namespace tarrow
