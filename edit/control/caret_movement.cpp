#include "edit/control/caret_movement.h"

#include <algorithm>

namespace tarrow {
namespace {

enum class Kind { kEnd, kLineEnd, kBlank, kWord, kOther };

Kind KindOf(const TextView& text, BytePos at) {
  int byte = text.At(at);
  if (byte < 0) return Kind::kEnd;
  if (byte == '\r' && text.At(at + 1) == '\n') return Kind::kLineEnd;
  if (byte == ' ' || byte == '\t') return Kind::kBlank;
  bool isAlphanumeric =
      (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
  return isAlphanumeric || byte == '_' || byte >= 0x80 ? Kind::kWord : Kind::kOther;
}

bool IsBlankOrEnd(int byte) {
  return byte < 0 || byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
}

}  // namespace

BytePos NextWord(const TextView& text, BytePos at, const Charset& charset) {
  Kind kind = KindOf(text, at);
  if (kind == Kind::kEnd || kind == Kind::kLineEnd) return charset.Next(text, at);
  while (KindOf(text, at) == kind) at = charset.Next(text, at);
  while (KindOf(text, at) == Kind::kBlank) at = charset.Next(text, at);
  return at;
}

BytePos PreviousWord(const TextView& text, BytePos at, const Charset& charset) {
  if (at.value == 0) return at;
  BytePos start = charset.Previous(text, at);
  if (KindOf(text, start) == Kind::kLineEnd) return start;
  auto stepBackOver = [&](Kind kind) {
    while (start.value > 0) {
      BytePos before = charset.Previous(text, start);
      if (KindOf(text, before) != kind) return;
      start = before;
    }
  };
  if (KindOf(text, start) == Kind::kBlank) {
    stepBackOver(Kind::kBlank);
    if (start.value == 0) return start;
    BytePos before = charset.Previous(text, start);
    if (KindOf(text, before) == Kind::kLineEnd) return start;
    start = before;
  }
  stepBackOver(KindOf(text, start));
  return start;
}

TextRange BlankDelimitedWord(const TextView& text, BytePos at) {
  BytePos start = at, end = at;
  bool isBlank = IsBlankOrEnd(text.At(at));
  while (start.value > 0 && IsBlankOrEnd(text.At(start - 1)) == isBlank && text.At(start - 1) != '\n')
    --start;
  while (end < text.End() && !IsBlankOrEnd(text.At(end))) ++end;
  while (text.At(end) == ' ' || text.At(end) == '\t') ++end;
  return {start, end};
}

LineNo LineAway(const TextBuffer& buffer, LineNo line, std::int64_t count) {
  return LineNo(std::clamp<std::int64_t>(line.value + count, 0, buffer.LastLine().value));
}

}  // namespace tarrow
