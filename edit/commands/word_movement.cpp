#include "edit/commands/word_movement.h"

#include "edit/text/letters.h"

namespace tarrow {

namespace {

bool IsWhite(int byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

BytePos SkipWhite(TextView text, BytePos p) {
  while (IsWhite(text.At(p))) ++p;
  return p;
}

// Back over white space: to the last character that is none, or to the start of the text.
BytePos SkipWhiteBack(TextView text, BytePos p, Charset charset) {
  while (p > BytePos(0) && IsWhite(text.At(p))) p = charset.Previous(text, p);
  return p;
}

BytePos SkipWordBack(TextView text, BytePos p, Charset charset) {
  while (p > BytePos(0) && IsWordCharacter(text, p, charset)) p = charset.Previous(text, p);
  return p;
}

BytePos ForwardEnd(TextView text, BytePos from, Charset charset) {
  BytePos end = WordEnd(text, from, charset);
  if (end != from && !IsWhite(text.At(WordStart(text, from, charset)))) return end;
  return WordEnd(text, SkipWhite(text, end), charset);
}

BytePos BackStart(TextView text, TextRange selection, Charset charset) {
  BytePos start = WordStart(text, selection.start, charset);
  if (start != selection.start || start == BytePos(0)) return start;
  return WordStart(text, SkipWhiteBack(text, charset.Previous(text, start), charset), charset);
}

// Begins at the character before the selection, so that repeating the move goes on. The word at the very
// start of the text has none before it: there the move ends.
BytePos BackEnd(TextView text, BytePos from, Charset charset) {
  if (from == BytePos(0)) return from;
  BytePos p = SkipWordBack(text, charset.Previous(text, from), charset);
  if (IsWordCharacter(text, p, charset)) return p;
  p = SkipWhiteBack(text, p, charset);
  return IsWordCharacter(text, p, charset) ? charset.Next(text, p) : p;
}

}  // namespace

BytePos WordStart(TextView text, BytePos p, Charset charset) {
  if (!IsWordCharacter(text, p, charset)) return p;
  while (p > BytePos(0)) {
    BytePos before = charset.Previous(text, p);
    if (!IsWordCharacter(text, before, charset)) break;
    p = before;
  }
  return p;
}

BytePos WordEnd(TextView text, BytePos p, Charset charset) {
  BytePos end = p;
  while (IsWordCharacter(text, end, charset)) end = charset.Next(text, end);
  if (end == p && p < text.End() && text.At(p) != '\r') end = charset.Next(text, p);
  return end;
}

BytePos FindWord(TextView text, TextRange selection, WordMove move, Charset charset) {
  switch (move) {
    case WordMove::kForwardStart:
      return SkipWhite(text, WordEnd(text, selection.end, charset));
    case WordMove::kForwardEnd:
      return ForwardEnd(text, selection.end, charset);
    case WordMove::kBackStart:
      return BackStart(text, selection, charset);
    case WordMove::kBackEnd:
      return BackEnd(text, selection.start, charset);
  }
  return selection.start;
}

TextRange MoveByWord(TextView text, TextRange selection, WordMove move, bool extend, Charset charset) {
  BytePos to = FindWord(text, selection, move, charset);
  if (!extend) return {to, to};
  bool forward = move == WordMove::kForwardStart || move == WordMove::kForwardEnd;
  return forward ? TextRange{selection.start, to} : TextRange{to, selection.end};
}

TextRange WordAround(TextView text, BytePos p, Charset charset) {
  return {WordStart(text, p, charset), WordEnd(text, p, charset)};
}

}  // namespace tarrow
