#include "edit/documents/buffer_lines.h"

#include <algorithm>

namespace tarrow {

BufferLines::BufferLines(const TextBuffer& buffer, const Charset& charset, TextRange part)
    : buffer_(buffer), charset_(charset), part_(part), line_(buffer.LineOf(part.start)) {}

std::optional<TextView> BufferLines::Next() {
  if (line_ > buffer_.LastLine()) return {};
  TextRange range = buffer_.LineRange(line_);
  if (range.start >= part_.end) return {};
  ++line_;
  // A part may begin or end within a line end.
  range.start = std::clamp(part_.start, range.start, range.end);
  range.end = std::clamp(part_.end, range.start, range.end);
  return buffer_.View().Sub(range);
}

}  // namespace tarrow
