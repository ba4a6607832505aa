// Cut, copy, paste and clear.
#include "edit/control/clipboard_text.h"
#include "edit/control/text_control.h"

namespace tarrow {

bool TextControl::Copy() {
  if (Selection().Empty()) return false;
  try {
    return PutOnClipboard(Handle(), View().Sub(Selection()), charset_);
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
    return false;
  }
}

// What could not be copied is not deleted.
bool TextControl::Cut() {
  bool done = Copy() && Clear();
  PostCaretMoved();
  return done;
}

bool TextControl::Clear() {
  return !readOnly_ && !Selection().Empty() && ReplaceSelection({}, EditKind::kDeleting);
}

bool TextControl::Paste() {
  if (readOnly_) return false;
  bool done = false;
  try {
    // The question that this may ask must not find the clipboard open.
    if (!charset_.IsUtf8() && !MakeRoomFor(ForeignTextFromClipboard(Handle(), charset_))) return false;
    std::optional<std::string> text = TextFromClipboard(Handle(), charset_);
    done = text && ReplaceSelection(*text);
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
  }
  PostCaretMoved();
  return done;
}

}  // namespace tarrow
