// A pattern that is tried at one place at a time, as if the text began there.
//
// Implemented over the regular expressions (search/pattern/filter_pattern.h); who extracts strings knows no
// more of them than this.
#pragma once

#include "base/progress.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

namespace tarrow {

class AnchoredPattern {
 public:
  struct Match {
    std::size_t start = 0;
    std::size_t length = 0;
  };

  virtual ~AnchoredPattern() = default;

  // Tries the places from..limit-1 of `text` in turn and returns the first at which the pattern matches at
  // least one byte, seeing nothing before that place; {limit, 0} when there is none. `limit` is at most the
  // size of the text; a match may reach beyond it. Polls `progress`, if there is one, and lets its
  // CYieldException through.
  [[nodiscard]] virtual Match FindFirst(std::string_view text, std::size_t from, std::size_t limit,
                                        Progress* progress) = 0;
};

// Makes a pattern of what a user typed. Null when it is none, with the number of the message that says why.
using AnchoredPatternMaker =
    std::function<std::unique_ptr<AnchoredPattern>(std::string_view text, int& message)>;

}  // namespace tarrow
