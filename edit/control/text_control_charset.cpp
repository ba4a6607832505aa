// Characters that the charset of the text lacks, and texts that come in another one.
#include "edit/control/text_control.h"

#include <new>

namespace tarrow {
namespace {

// A text in UTF-8, and where its selection is then.
struct Converted {
  TextBuffer text;
  TextRange selection;
};

Converted ConvertText(const TextView& view, const Charset& charset, TextRange selection) {
  std::string bytes;
  auto append = [&](BytePos from, BytePos to) {
    bytes += charset.Convert(view.Sub({from, to}), Charset());
    return BytePos(static_cast<std::int64_t>(bytes.size()));
  };
  Converted converted;
  converted.selection.start = append(BytePos(0), selection.start);
  converted.selection.end = append(selection.start, selection.end);
  append(selection.end, view.End());
  converted.text.Replace({}, bytes, EditKind::kForgotten);
  return converted;
}

}  // namespace

bool TextControl::MakeRoomFor(std::u16string_view wide) {
  if (charset_.IsUtf8() || charset_.Holds(wide)) return true;
  MissingCharacters what = MissingCharacters::kConvert;
  if (!IsAscii(View())) what = hooks_ ? hooks_->OnMissingCharacters() : MissingCharacters::kSubstitute;
  if (what == MissingCharacters::kConvert) return ConvertToUtf8();
  return what == MissingCharacters::kSubstitute;
}

// The lines stay what they are, and so does the view. What there was to undo was bytes of the code page.
bool TextControl::ConvertToUtf8() {
  if (charset_.IsUtf8()) return true;
  LineNo top = top_;
  Pixels left = left_;
  bool caretIsFirst = caret_ < anchor_;
  try {
    Converted converted = ConvertText(View(), charset_, Selection());
    Adopt(std::move(converted.text));
    auto [start, end] = converted.selection;
    Select(caretIsFirst ? end : start, caretIsFirst ? start : end);
    ScrollTo(top, left);
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
    return false;
  } catch (const std::bad_alloc&) {
    Notify(EN_ERRSPACE);
    return false;
  }
  charset_ = Charset();  // also of a text without a character beyond ASCII
  SetModified(true);
  Notify(EN_UPDATE);
  Notify(EN_CHANGE);
  return true;
}

bool TextControl::Insert(std::string_view text, const Charset& from) {
  TextView view(text);
  try {
    bool isSame = from == charset_ || IsAscii(view);
    if (!isSame && !charset_.IsUtf8() && !MakeRoomFor(from.ToWide(view))) return false;
    isSame = isSame || from == charset_;
    return ReplaceSelection(isSame ? text : from.Convert(view, charset_));
  } catch (const std::bad_alloc&) {
    Notify(EN_ERRSPACE);
    return false;
  }
}

}  // namespace tarrow
