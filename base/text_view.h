// Readable text: the bytes of a document as the two contiguous pieces in which a gap buffer holds them.
//
// Everything that reads a document takes a TextView: it costs nothing to make, copies nothing, and a plain
// string is one too (the second piece empty). Offsets are zero-based bytes over both pieces. A view is valid
// until the text it was taken of changes.
#pragma once

#include "base/units.h"

#include <cstring>
#include <string>
#include <string_view>

namespace tarrow {

struct TextView {
  std::string_view head;
  std::string_view tail;

  TextView() = default;
  TextView(std::string_view whole) : head(whole) {}  // NOLINT(google-explicit-constructor)
  TextView(std::string_view first, std::string_view second) : head(first), tail(second) {}

  std::int32_t Size() const { return static_cast<std::int32_t>(head.size() + tail.size()); }
  BytePos End() const { return BytePos(Size()); }

  // The byte at `p`, which must lie below End().
  char operator[](BytePos p) const {
    auto i = static_cast<std::size_t>(p.value);
    return i < head.size() ? head[i] : tail[i - head.size()];
  }

  // The byte at `p` as 0..255, or -1 when `p` lies outside the text.
  int At(BytePos p) const {
    return p.value < 0 || p.value >= Size() ? -1 : static_cast<unsigned char>((*this)[p]);
  }

  // The view of [range.start, range.end), again without copying.
  TextView Sub(TextRange range) const {
    auto from = static_cast<std::size_t>(range.start.value), to = static_cast<std::size_t>(range.end.value);
    if (to <= head.size()) return head.substr(from, to - from);
    if (from >= head.size()) return tail.substr(from - head.size(), to - from);
    return {head.substr(from), tail.substr(0, to - head.size())};
  }

  // A copy of the bytes in one piece.
  std::string Copy() const {
    std::string out;
    out.reserve(head.size() + tail.size());
    return out.append(head).append(tail);
  }
  std::string Copy(TextRange range) const { return Sub(range).Copy(); }
};

}  // namespace tarrow
