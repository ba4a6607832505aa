// Bytes of a file of any size: [start, end).
#pragma once

#include <cstdint>

namespace tarrow {

struct FileRange {
  std::uint64_t start = 0, end = 0;

  constexpr bool Empty() const { return start >= end; }
  friend constexpr bool operator==(const FileRange&, const FileRange&) = default;
};

}  // namespace tarrow
