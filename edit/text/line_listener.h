// Who keeps something for each line of a text is told of every change of the text, as it is made.
#pragma once

#include "base/units.h"

#include <cstdint>

namespace tarrow {

// Of the lines behind `line` so many have gone, and so many have come in their place; in `line` itself and in
// those that have come, bytes have changed. All other lines are what they were.
struct LineChange {
  LineNo line;
  std::int32_t offset = 0;  // bytes of `line` in front of the change
  std::int64_t removed = 0;
  std::int64_t added = 0;
};

class LineListener {
 public:
  virtual void OnLinesChanged(const LineChange& change) noexcept = 0;

 protected:
  ~LineListener() = default;
};

}  // namespace tarrow
