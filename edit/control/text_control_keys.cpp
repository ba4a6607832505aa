// Keys and typed characters. Characters come as UTF-16 from the message loop, as bytes from whoever sends
// WM_CHAR to the ANSI window, as codes with WM_UNICHAR, and as whole strings from an input method editor.
#include "edit/control/text_control.h"

#include "edit/control/caret_movement.h"

#include <imm.h>

#include <utility>

namespace tarrow {
namespace {

enum ControlCharacter : char32_t {
  kSelectAll = 0x01,
  kCopy = 0x03,
  kBackspace = 0x08,
  kTab = 0x09,
  kEnter = 0x0D,
  kPaste = 0x16,
  kCut = 0x18,
  kRedo = 0x19,
  kUndo = 0x1A,
  kDeleteWordBack = 0x7F,
};

bool IsDown(int key) {
  return ::GetKeyState(key) < 0;
}

bool IsHigh(char16_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLow(char16_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

class InputContext {
 public:
  explicit InputContext(HWND window) : window_(window), context_(::ImmGetContext(window)) {}
  ~InputContext() {
    if (context_) ::ImmReleaseContext(window_, context_);
  }
  InputContext(const InputContext&) = delete;
  InputContext& operator=(const InputContext&) = delete;
  operator HIMC() const { return context_; }  // NOLINT

 private:
  HWND window_;
  HIMC context_;
};

}  // namespace

void TextControl::OnKeyDown(UINT key, LPARAM) {
  wordDeleted_ = false;
  bool shift = IsDown(VK_SHIFT), control = IsDown(VK_CONTROL);
  bool taken = hooks_ && hooks_->OnKeyDown(key, shift, control);
  if (!taken)
    taken = MoveByKey(key, shift, control) || ScrollByKey(key, control) || EditByKey(key, shift, control);
  if (!taken) Default();
  if (key != VK_SHIFT && key != VK_CONTROL) PostCaretMoved();
}

bool TextControl::MoveByKey(UINT key, bool shift, bool control) {
  LineNo line = buffer_.LineOf(caret_);
  switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
      MoveCaret(HorizontalTarget(key, control, shift), shift);
      return true;
    case VK_HOME:
      MoveCaret(control ? BytePos(0) : buffer_.LineStart(line), shift);
      return true;
    case VK_END:
      MoveCaret(control ? buffer_.End() : buffer_.LineRange(line).end, shift);
      return true;
    case VK_UP:
    case VK_DOWN:
      if (control) return false;
      MoveCaretKeepingColumn(LineAway(buffer_, line, key == VK_UP ? -1 : 1), shift);
      return true;
    case VK_PRIOR:
    case VK_NEXT:
      MoveByPage(key == VK_PRIOR ? -1 : 1, shift);
      return true;
    default:
      return false;
  }
}

// Without Shift, an arrow leaves a selection at its side.
BytePos TextControl::HorizontalTarget(UINT key, bool control, bool extend) const {
  TextView view = View();
  bool isLeft = key == VK_LEFT;
  if (control) return isLeft ? PreviousWord(view, caret_, charset_) : NextWord(view, caret_, charset_);
  TextRange selection = Selection();
  if (!extend && !selection.Empty()) return isLeft ? selection.start : selection.end;
  return isLeft ? charset_.Previous(view, caret_) : charset_.Next(view, caret_);
}

// The view moves with the caret, so that the caret keeps its place in the window.
void TextControl::MoveByPage(int direction, bool extend) {
  std::int64_t page = std::int64_t{direction} * std::max(1, LinesInView() - 1);
  LineNo top = std::min(LineAway(buffer_, top_, page), std::max(LastTop(), top_));
  LineNo line = LineAway(buffer_, buffer_.LineOf(caret_), page);
  ScrollTo(top, left_);
  MoveCaretKeepingColumn(line, extend);
}

bool TextControl::ScrollByKey(UINT key, bool control) {
  if (!control || (key != VK_UP && key != VK_DOWN)) return false;
  OnVScroll(key == VK_UP ? SB_LINEUP : SB_LINEDOWN, 0, nullptr);
  return true;
}

bool TextControl::EditByKey(UINT key, bool shift, bool control) {
  TextView view = View();
  if (key == VK_DELETE && shift) {
    control ? DeleteSelectionOr(buffer_.LineRange(buffer_.LineOf(caret_)).end) : void(Cut());
  } else if (key == VK_DELETE) {
    DeleteSelectionOr(control ? NextWord(view, caret_, charset_) : charset_.Next(view, caret_));
  } else if (key == VK_BACK && control) {
    DeleteSelectionOr(PreviousWord(view, caret_, charset_));
    wordDeleted_ = true;
  } else if (key == VK_INSERT && shift) {
    Paste();
  } else if (key == VK_INSERT && control) {
    Copy();
  } else {
    return false;
  }
  return true;
}

void TextControl::DeleteSelectionOr(BytePos to) {
  if (Selection().Empty())
    DeleteTo(to);
  else
    Clear();
}

void TextControl::DeleteTo(BytePos to) {
  if (readOnly_ || to == caret_) return;
  Replace({std::min(caret_, to), std::max(caret_, to)}, {}, EditKind::kDeleting);
}

bool TextControl::PreDispatch(const MSG& message) {
  if (message.message != WM_CHAR) return false;
  TakeUnit(static_cast<char16_t>(message.wParam));
  return true;
}

void TextControl::TakeUnit(char16_t unit) {
  char16_t high = std::exchange(highSurrogate_, u'\0');
  if (IsHigh(unit))
    highSurrogate_ = unit;
  else if (!IsLow(unit))
    TakeCharacter(unit);
  else if (high)
    TakeCharacter(0x10000 + ((high & 0x3FFu) << 10) + (unit & 0x3FFu));
}

// A byte of the system's code page; the two of a pair come one after the other.
void TextControl::OnChar(UINT byte, LPARAM) {
  leadByte_ += static_cast<char>(byte);
  if (leadByte_.size() == 1 && SystemCodePage().isLead[byte & 0xFF]) return;
  std::string bytes = std::exchange(leadByte_, {});
  for (char16_t unit : Charset(SystemCodePage()).ToWide(TextView(bytes))) TakeUnit(unit);
}

LRESULT TextControl::OnUnichar(WPARAM code, LPARAM) {
  if (code != UNICODE_NOCHAR) {
    TakeCharacter(static_cast<char32_t>(code));
    PostCaretMoved();
  }
  return TRUE;
}

// Ctrl+Backspace is taken as a key: what follows as its character is 0x7F, but a plain backspace under Wine.
void TextControl::TakeCharacter(char32_t code) {
  if (std::exchange(wordDeleted_, false) && (code == kBackspace || code == kDeleteWordBack)) return;
  if (hooks_ && hooks_->OnCharacter(code)) return;
  if (code < U' ' || code == kDeleteWordBack)
    TakeControlCharacter(code);
  else
    Type(code);
}

void TextControl::TakeControlCharacter(char32_t code) {
  TextView view = View();
  switch (code) {
    case kBackspace:
      return DeleteSelectionOr(charset_.Previous(view, caret_));
    case kDeleteWordBack:
      return DeleteSelectionOr(PreviousWord(view, caret_, charset_));
    case kTab:
    case kEnter:
      return void(Type(code));
    case kSelectAll:
      return Select(BytePos(0), buffer_.End());
    case kCopy:
      return void(Copy());
    case kCut:
      return void(Cut());
    case kPaste:
      return void(Paste());
    case kRedo:
      return void(RedoNext());
    case kUndo:
      return void(UndoLast());
    default:
      return;
  }
}

// Alt+Backspace.
LRESULT TextControl::OnSysChar(WPARAM key, LPARAM) {
  if (key != VK_BACK) return Default();
  return UndoLast();
}

// The editor shows what is being composed at the caret, in the font of the text.
LRESULT TextControl::OnImeStart(WPARAM, LPARAM) {
  InputContext context(Handle());
  if (!context) return Default();
  COMPOSITIONFORM form{};
  form.dwStyle = CFS_POINT;
  form.ptCurrentPos = PointOf(caret_);
  ::ImmSetCompositionWindow(context, &form);
  LOGFONTW font{};
  ::GetObjectW(font_->Font(), sizeof font, &font);
  ::ImmSetCompositionFontW(context, &font);
  return Default();
}

// The result is taken as UTF-16 here: the default would send it in bytes of the code page.
LRESULT TextControl::OnImeComposition(WPARAM w, LPARAM what) {
  if (!(what & GCS_RESULTSTR)) return Default();
  InputContext context(Handle());
  if (!context) return Default();
  LONG bytes = ::ImmGetCompositionStringW(context, GCS_RESULTSTR, nullptr, 0);
  if (bytes <= 0) return Default();
  std::u16string result(static_cast<std::size_t>(bytes) / sizeof(char16_t), u'\0');
  ::ImmGetCompositionStringW(context, GCS_RESULTSTR, result.data(), static_cast<DWORD>(bytes));
  for (char16_t unit : result) TakeUnit(unit);
  PostCaretMoved();
  // With the result may come the beginning of what is composed next.
  constexpr LPARAM kResult = GCS_RESULTSTR | GCS_RESULTCLAUSE | GCS_RESULTREADSTR | GCS_RESULTREADCLAUSE;
  return (what & ~kResult) ? DefaultProc(WM_IME_COMPOSITION, w, what & ~kResult) : 0;
}

}  // namespace tarrow
