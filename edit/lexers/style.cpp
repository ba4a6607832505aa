#include "edit/lexers/style.h"

#include <utility>

namespace tarrow {

void StyleRuns::JoinBlanks(std::string_view line) {
  std::size_t start = 0, kept = 0;
  for (const StyleRun run : runs_) {
    std::size_t from = std::exchange(start, static_cast<std::size_t>(run.end));
    bool isBlank = run.style == Style::kText && start <= line.size() &&
                   line.substr(from, start - from).find_first_not_of(" \t") == line.npos;
    bool isSame = kept > 0 && runs_[kept - 1].style == run.style;
    if (kept > 0 && (isBlank || isSame))
      runs_[kept - 1].end = run.end;
    else if (!isBlank || run.end == End())
      runs_[kept++] = run;
  }
  runs_.resize(kept);
}

}  // namespace tarrow
