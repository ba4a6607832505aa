#include "edit/commands/goto_line.h"

#include <algorithm>

namespace tarrow {

LineNo GotoLineTarget(std::uint64_t number, std::int32_t lineCount) {
  auto last = static_cast<std::uint64_t>(lineCount - 1);
  return LineNo(static_cast<std::int64_t>(number == 0 ? 0 : std::min(number - 1, last)));
}

std::int32_t LinesToScroll(LineNo target, LineNo firstVisible, std::int32_t linesInView,
                           std::int32_t lineCount) {
  LineNo last(lineCount - 1);
  bool atBottom = target - firstVisible == linesInView - 1;
  return atBottom ? std::min(linesInView / 2, last - target) : 0;
}

}  // namespace tarrow
