#include "edit/text/line_bounds.h"

#include "base/byte_scan.h"

namespace tarrow {

namespace {

// The last LF before `p`, or nothing.
std::optional<BytePos> FindLastLf(TextView text, BytePos p) {
  TextView before = text.Sub({BytePos(0), p});
  std::size_t at = FindLastByte(before.tail, '\n');
  if (at < before.tail.size()) return BytePos(static_cast<std::int64_t>(before.head.size() + at));
  at = FindLastByte(before.head, '\n');
  if (at < before.head.size()) return BytePos(static_cast<std::int64_t>(at));
  return std::nullopt;
}

// The first LF at or after `p`, or the end of the text.
BytePos FindLf(TextView text, BytePos p) {
  TextView after = text.Sub({p, text.End()});
  std::size_t at = FindByte(after.head, '\n');
  if (at == after.head.size()) at += FindByte(after.tail, '\n');
  return p + static_cast<std::int64_t>(at);
}

}  // namespace

bool AtLineBreak(TextView text, BytePos p) {
  return text.At(p) == '\r' && text.At(p + 1) == '\n';
}

bool InsideLineBreak(TextView text, BytePos p) {
  return AtLineBreak(text, p - 1);
}

TextRange OutsideLineBreaks(TextView text, TextRange selection) {
  bool caret = selection.Empty();
  if (InsideLineBreak(text, selection.start)) --selection.start;
  if (caret) return {selection.start, selection.start};
  if (InsideLineBreak(text, selection.end)) ++selection.end;
  return selection;
}

BytePos LineStart(TextView text, BytePos p) {
  while (std::optional<BytePos> lf = FindLastLf(text, p)) {
    if (InsideLineBreak(text, *lf)) return *lf + 1;
    p = *lf;
  }
  return BytePos(0);
}

BytePos LineEnd(TextView text, BytePos p) {
  for (;; ++p) {
    p = FindLf(text, p);
    if (p == text.End()) return p;
    if (InsideLineBreak(text, p)) return p - 1;
  }
}

std::optional<BytePos> NextLineStart(TextView text, BytePos p) {
  BytePos end = LineEnd(text, p);
  if (end == text.End()) return std::nullopt;
  return end + 2;
}

}  // namespace tarrow
