// The control as a window, and the one way in which its text and its selection change.
#include "edit/control/text_control.h"

#include "edit/control/character_count.h"
#include "framework/handle.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

constexpr char kClassName[] = "TarrowEdit";

// An ANSI class, which CWnd's own registration is not.
void RegisterOnce(WNDPROC procedure) {
  static bool isRegistered = false;
  if (std::exchange(isRegistered, true)) return;
  WNDCLASSEXA wc{};
  wc.cbSize = sizeof wc;
  wc.style = CS_DBLCLKS;
  wc.lpfnWndProc = procedure;
  wc.hInstance = ModuleInstance();
  wc.hCursor = ::LoadCursorW(nullptr, IDC_IBEAM);
  wc.lpszClassName = kClassName;
  ::RegisterClassExA(&wc);
}

// No caret in the window until the end of the scope; a null window has none anyway.
class HiddenCaret {
 public:
  explicit HiddenCaret(HWND window) : window_(window) {
    if (window_) ::HideCaret(window_);
  }
  ~HiddenCaret() {
    if (window_) ::ShowCaret(window_);
  }
  HiddenCaret(const HiddenCaret&) = delete;
  HiddenCaret& operator=(const HiddenCaret&) = delete;

 private:
  HWND window_;
};

}  // namespace

constinit const MessageMap TextControl::kMessageMap = MessageMap::Make<
    &TextControl::kEditMessages, On<WM_CREATE, &TextControl::OnCreate>, On<WM_SIZE, &TextControl::OnSize>,
    On<WM_PAINT, &TextControl::OnPaint>, On<WM_ERASEBKGND, &TextControl::OnEraseBackground>,
    On<WM_SYSCOLORCHANGE, &TextControl::OnSysColorChange>, On<WM_SETFOCUS, &TextControl::OnFocus>,
    On<WM_KILLFOCUS, &TextControl::OnKillFocus>, On<WM_SETFONT, &TextControl::OnSetFont>,
    On<WM_GETFONT, &TextControl::OnGetFont>, On<WM_GETDLGCODE, &TextControl::OnGetDialogCode>,
    On<WM_KEYDOWN, &TextControl::OnKeyDown>, On<WM_CHAR, &TextControl::OnChar>,
    On<WM_UNICHAR, &TextControl::OnUnichar>, On<WM_SYSCHAR, &TextControl::OnSysChar>,
    On<WM_IME_STARTCOMPOSITION, &TextControl::OnImeStart>,
    On<WM_IME_COMPOSITION, &TextControl::OnImeComposition>, On<WM_LBUTTONDOWN, &TextControl::OnLButtonDown>,
    On<WM_LBUTTONDBLCLK, &TextControl::OnLButtonDblClk>, On<WM_LBUTTONUP, &TextControl::OnLButtonUp>,
    On<WM_RBUTTONDOWN, &TextControl::OnRButtonDown>, On<WM_MOUSEMOVE, &TextControl::OnMouseMove>,
    On<WM_CAPTURECHANGED, &TextControl::OnCaptureChanged>, On<WM_TIMER, &TextControl::OnTimer>,
    On<WM_MOUSEWHEEL, &TextControl::OnMouseWheel>, On<WM_MOUSEHWHEEL, &TextControl::OnMouseHWheel>,
    On<WM_VSCROLL, &TextControl::OnVScroll>, On<WM_HSCROLL, &TextControl::OnHScroll>,
    On<WM_STYLECHANGED, &TextControl::OnStyleChanged>>();

bool TextControl::CreateControl(HWND parent, int id, DWORD style, const RECT& bounds) {
  RegisterOnce(StaticProc);
  return CreateBound([&] {
           return ::CreateWindowExA(0, kClassName, "", style, bounds.left, bounds.top,
                                    bounds.right - bounds.left, bounds.bottom - bounds.top, parent,
                                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), ModuleInstance(),
                                    nullptr);
         }) != nullptr;
}

LRESULT TextControl::DefaultProc(UINT message, WPARAM w, LPARAM l) {
  return ::DefWindowProcA(Handle(), message, w, l);
}

bool TextControl::OnCreate(const CREATESTRUCTW& create) {
  readOnly_ = (create.style & ES_READONLY) != 0;
  SetFont(nullptr);
  return true;
}

void TextControl::Notify(UINT code) const {
  ::SendMessageW(::GetParent(Handle()), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(Handle()), code),
                 reinterpret_cast<LPARAM>(Handle()));
}

void TextControl::PostCaretMoved() const {
  ::PostMessageW(::GetParent(Handle()), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(Handle()), kCaretMoved),
                 reinterpret_cast<LPARAM>(Handle()));
}

void TextControl::Adopt(TextBuffer&& text) {
  buffer_ = std::move(text);
  buffer_.SetUndoLevels(undoLevels_);
  charset_ = Charset::Of(buffer_.View());
  anchor_ = caret_ = BytePos(0);
  top_ = LineNo(0);
  left_ = widest_ = 0;
  checkpoints_.Clear();
  counts_.Clear();
  SetModified(false);
  column_.reset();
  RestartColours();
  UpdateScrollBars();
  PlaceCaret();
}

void TextControl::AdoptInPlace(TextBuffer&& text) {
  LineNo line = buffer_.LineOf(caret_), top = top_;
  Pixels left = left_;
  std::int32_t offset = caret_ - buffer_.LineStart(line);
  Adopt(std::move(text));
  TextRange range = buffer_.LineRange(std::min(line, buffer_.LastLine()));
  BytePos caret = std::min(range.start + offset, range.end);
  Select(caret, caret);
  ScrollTo(std::min(top, LastTop()), left);
}

std::int32_t TextControl::ColumnOf(BytePos at) const {
  return CountCharacters(View(), buffer_.LineStart(buffer_.LineOf(at)), at, charset_, counts_);
}

TextRange TextControl::Selection() const {
  return {std::min(anchor_, caret_), std::max(anchor_, caret_)};
}

// The core of every change: `action` changes the text within `range` and returns what to select afterwards.
// A change within one line, as every key makes, is drawn at once: going through the update region and
// WM_PAINT costs several times as much as drawing the line.
template <typename Action>
bool TextControl::Change(TextRange range, Action action) {
  LineNo line = buffer_.LineOf(range.start), last = buffer_.LineOf(range.end), count = buffer_.LineCount();
  TextRange selected = Selection(), select;
  try {
    select = action();
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
    return false;
  }
  checkpoints_.Truncate(range.start);
  counts_.Truncate(range.start);
  // Joining or parting a CR and an LF moves the boundary of the line before.
  line = std::min(line, buffer_.LineOf(range.start));
  bool isOneLine = buffer_.LineCount() == count && line == last && selected.Empty();
  if (buffer_.LineCount() != count)
    InvalidateFrom(line);
  else if (!isOneLine)
    InvalidateLines(line, last);
  if (!selected.Empty()) InvalidateFrom(std::min(line, buffer_.LineOf(selected.start)));
  anchor_ = caret_ = std::min(select.start, buffer_.End());
  modified_ = !buffer_.IsSaved();
  Notify(EN_UPDATE);
  {
    HiddenCaret hidden(hasFocus_ ? Handle() : nullptr);
    Select(select);
    SettleView();
    if (isOneLine) PaintNow(line);
  }
  Notify(EN_CHANGE);
  return true;
}

// The style tells others what is set, as that of the platform's control does.
void TextControl::SetReadOnly(bool readOnly) {
  readOnly_ = readOnly;
  LONG style = ::GetWindowLongW(Handle(), GWL_STYLE);
  ::SetWindowLongW(Handle(), GWL_STYLE, readOnly ? style | ES_READONLY : style & ~ES_READONLY);
}

// What of `text` the limit leaves room for in place of `range`.
std::string_view TextControl::FitIn(TextRange range, std::string_view text) {
  std::int64_t room = std::int64_t{limit_} - (buffer_.Size() - range.Length());
  if (static_cast<std::int64_t>(text.size()) <= room || limit_ == kMaxTextSize) return text;
  Notify(EN_MAXTEXT);
  BytePos end = charset_.Snap(TextView(text), BytePos(std::max<std::int64_t>(room, 0)));
  return text.substr(0, static_cast<std::size_t>(end.value));
}

bool TextControl::Replace(TextRange range, std::string_view text, EditKind kind) {
  std::string_view fitting = FitIn(range, text);
  return Change(range, [&] {
    buffer_.Replace(range, fitting, kind);
    BytePos end = range.start + static_cast<std::int64_t>(fitting.size());
    return TextRange{end, end};
  });
}

bool TextControl::ReplaceSelection(std::string_view text, EditKind kind) {
  return Replace(Selection(), text, kind);
}

bool TextControl::Apply(const EditList& edits, TextRange selection) {
  if (edits.Empty()) {
    Select(selection);
    return true;
  }
  TextRange before = Selection();
  return Change({edits[0].range.start, edits[edits.Size() - 1].range.end}, [&] {
    buffer_.Apply(edits, before);
    return selection;
  });
}

void TextControl::Append(std::string_view text) {
  BytePos end = buffer_.End();
  bool follows = anchor_ == end && caret_ == end;
  LineNo last = buffer_.LastLine();
  buffer_.Replace({end, end}, text, EditKind::kForgotten);
  if (charset_.IsUtf8()) charset_ = Charset::Of(TextView(text));
  checkpoints_.Truncate(end);
  InvalidateFrom(last);
  WantIdleTime();
  if (follows)
    Select(buffer_.End(), buffer_.End());
  else
    UpdateScrollBars();
}

bool TextControl::UndoLast() {
  return CanUndo() && TakeBack(buffer_.SelectionBeforeLast(), &TextBuffer::UndoLast);
}

bool TextControl::RedoNext() {
  return CanRedo() && TakeBack(buffer_.SelectionBehindNext(), &TextBuffer::RedoNext);
}

bool TextControl::TakeBack(std::optional<TextRange> before,
                           std::optional<TextRange> (TextBuffer::*turn)(std::optional<TextRange>)) {
  if (readOnly_) return false;
  TextRange now = Selection();
  bool done = Change({BytePos(0), buffer_.End()}, [&] {
    TextRange changed = (buffer_.*turn)(now).value();
    return before.value_or(changed);
  });
  if (done) PostCaretMoved();
  return done;
}

void TextControl::SetUndoLevels(int levels) {
  undoLevels_ = levels;
  buffer_.SetUndoLevels(levels);
  SetModified(modified_);
}

void TextControl::SetModified(bool modified) {
  modified_ = modified;
  modified ? buffer_.ForgetSaved() : buffer_.MarkSaved();
}

bool TextControl::Type(char32_t code) {
  if (readOnly_) return false;
  std::u16string wide;
  AppendUtf16(code, wide);
  if (!MakeRoomFor(wide)) return false;
  return ReplaceSelection(code == U'\r' ? std::string("\r\n") : charset_.Encode(code), EditKind::kTyping);
}

void TextControl::Select(BytePos anchor, BytePos caret) {
  auto within = [&](BytePos at) { return std::clamp(at, BytePos(0), buffer_.End()); };
  anchor = within(anchor);
  caret = within(caret);
  if (anchor == caret) anchor = caret = charset_.Snap(View(), caret);
  column_.reset();
  SetSelection(anchor, caret);
}

void TextControl::SetSelection(BytePos anchor, BytePos caret) {
  TextRange before = Selection();
  // The change itself has put the caret already where typing goes on.
  if (anchor_ != anchor || caret_ != caret) buffer_.EndUndoUnit();
  anchor_ = anchor;
  caret_ = caret;
  InvalidateSelectionChange(before, Selection());
  MakeVisible(caret_);
  UpdateScrollBars();
  PlaceCaret();
}

void TextControl::MoveCaret(BytePos to, bool extend) {
  Select(extend ? anchor_ : to, to);
}

void TextControl::MoveCaretKeepingColumn(LineNo line, bool extend) {
  Pixels column = column_ ? *column_ : XOf(caret_);
  TextView view = View();
  BytePos to = LayoutOf(view, line).Nearest(column);
  SetSelection(extend ? anchor_ : to, to);
  column_ = column;
}

LRESULT TextControl::OnSetFont(WPARAM font, LPARAM redraw) {
  SetFont(reinterpret_cast<HFONT>(font));
  if (LOWORD(redraw)) ::UpdateWindow(Handle());
  return 0;
}

void TextControl::SetFont(HFONT font) {
  font_ = std::make_unique<FontWidths>(font);
  colouring_.SetFont(*font_);
  UpdateTabs();
  if (hasFocus_) MakeCaret();
}

// Where text stands in its lines has changed.
void TextControl::UpdateTabs() {
  tabs_ = {};
  for (int units : tabUnits_) tabs_.stops.push_back(std::max(1, units * font_->AverageWidth() / 4));
  tabs_.every = tabs_.stops.empty() ? 8 * font_->AverageWidth() : static_cast<int>(tabs_.stops.back());
  if (tabs_.stops.size() == 1) tabs_.stops.clear();
  widest_ = 0;
  checkpoints_.Clear();
  column_.reset();
  Invalidate();
  UpdateScrollBars();
  PlaceCaret();
}

void TextControl::SetTabColumns(int columns) {
  tabUnits_.assign(1, 4 * columns);
  UpdateTabs();
}

void TextControl::MakeCaret() {
  DWORD width = 1;
  ::SystemParametersInfoW(SPI_GETCARETWIDTH, 0, &width, 0);
  ::CreateCaret(Handle(), nullptr, static_cast<int>(std::max<DWORD>(width, 1)), font_->LineHeight());
  PlaceCaret();
  ::ShowCaret(Handle());
}

void TextControl::OnFocus(HWND) {
  hasFocus_ = true;
  MakeCaret();
  InvalidateSelectionChange({}, Selection());
  Notify(EN_SETFOCUS);
}

void TextControl::OnKillFocus(HWND) {
  hasFocus_ = false;
  ::DestroyCaret();
  highSurrogate_ = 0;
  leadByte_.clear();
  InvalidateSelectionChange({}, Selection());
  Notify(EN_KILLFOCUS);
}

}  // namespace tarrow
