#include "edit/commands/typing.h"

#include "edit/text/line_bounds.h"

namespace tarrow {

TextRange OvertypeRange(TextView text, TextRange selection, std::uint32_t character, Charset charset) {
  BytePos caret = selection.start;
  bool isControl = character < ' ' || character == kDeleteCharacter;
  if (isControl || !selection.Empty() || caret == text.End() || AtLineBreak(text, caret)) return selection;
  return {caret, charset.Next(text, caret)};
}

}  // namespace tarrow
