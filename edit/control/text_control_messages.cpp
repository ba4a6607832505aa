// The messages of an edit control, each translated to the typed functions. Their numbers are what the
// platform defines; texts in them are bytes.
#include "edit/control/text_control.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace tarrow {
namespace {

// A pair of positions as a message returns it: -1 where they do not fit into 16 bits each.
LRESULT PairOf(std::int32_t low, std::int32_t high) {
  return low > 0xFFFF || high > 0xFFFF ? -1 : MAKELONG(low, high);
}

std::int32_t Signed(WPARAM w) {
  return static_cast<std::int32_t>(w);
}

}  // namespace

constinit const MessageMap TextControl::kEditMessages = MessageMap::Make<
    &CWnd::kMessageMap, On<EM_GETSEL, &TextControl::OnGetSel>, On<EM_SETSEL, &TextControl::OnSetSel>,
    On<EM_REPLACESEL, &TextControl::OnReplaceSel>, On<EM_GETHANDLE, &TextControl::OnGetHandle>,
    On<EM_SETHANDLE, &TextControl::OnSetHandle>, On<EM_LINEINDEX, &TextControl::OnLineIndex>,
    On<EM_LINEFROMCHAR, &TextControl::OnLineFromChar>, On<EM_LINELENGTH, &TextControl::OnLineLength>,
    On<EM_GETLINE, &TextControl::OnGetLine>, On<EM_GETLINECOUNT, &TextControl::OnGetLineCount>,
    On<EM_GETFIRSTVISIBLELINE, &TextControl::OnGetFirstVisibleLine>,
    On<EM_LINESCROLL, &TextControl::OnLineScroll>, On<EM_SCROLL, &TextControl::OnScroll>,
    On<EM_SCROLLCARET, &TextControl::OnScrollCaret>, On<EM_CANUNDO, &TextControl::OnCanUndo>,
    On<EM_UNDO, &TextControl::OnUndo>, On<WM_UNDO, &TextControl::OnUndo>,
    On<EM_EMPTYUNDOBUFFER, &TextControl::OnEmptyUndo>, On<EM_GETMODIFY, &TextControl::OnGetModify>,
    On<EM_SETMODIFY, &TextControl::OnSetModify>, On<EM_SETREADONLY, &TextControl::OnSetReadOnly>,
    On<EM_SETTABSTOPS, &TextControl::OnSetTabStops>, On<EM_LIMITTEXT, &TextControl::OnLimitText>,
    On<EM_GETLIMITTEXT, &TextControl::OnGetLimitText>, On<EM_GETRECT, &TextControl::OnGetRect>,
    On<EM_POSFROMCHAR, &TextControl::OnPosFromChar>, On<EM_CHARFROMPOS, &TextControl::OnCharFromPos>,
    On<WM_SETTEXT, &TextControl::OnSetText>, On<WM_GETTEXT, &TextControl::OnGetText>,
    On<WM_GETTEXTLENGTH, &TextControl::OnGetTextLength>, On<WM_CUT, &TextControl::OnCut>,
    On<WM_COPY, &TextControl::OnCopy>, On<WM_PASTE, &TextControl::OnPaste>,
    On<WM_CLEAR, &TextControl::OnClear>>();

LRESULT TextControl::OnGetSel(WPARAM start, LPARAM end) {
  TextRange selection = Selection();
  if (start) *reinterpret_cast<DWORD*>(start) = static_cast<DWORD>(selection.start.value);
  if (end) *reinterpret_cast<DWORD*>(end) = static_cast<DWORD>(selection.end.value);
  return PairOf(selection.start.value, selection.end.value);
}

// A start of -1 leaves the caret where it is and selects nothing; an end of -1 is the end of the text.
LRESULT TextControl::OnSetSel(WPARAM start, LPARAM end) {
  std::int32_t from = Signed(start), to = static_cast<std::int32_t>(end);
  if (from < 0)
    Select(caret_, caret_);
  else
    Select(BytePos(from), to < 0 ? buffer_.End() : BytePos(to));
  return 1;
}

// The text handed in may be the control's own, as EM_GETHANDLE gives it; that one must not move while it is
// read.
LRESULT TextControl::OnReplaceSel(WPARAM canUndo, LPARAM text) {
  auto bytes = text ? reinterpret_cast<const char*>(text) : "";
  std::string_view own = View().head;
  std::string copy;
  if (std::less_equal<>()(own.data(), bytes) && std::less_equal<>()(bytes, own.data() + own.size()))
    bytes = (copy = bytes).c_str();
  return ReplaceSelection(bytes, canUndo ? EditKind::kTyping : EditKind::kForgotten);
}

// The handle is the address of the text, which is what a handle to fixed memory is: LocalLock returns it.
LRESULT TextControl::OnGetHandle(WPARAM, LPARAM) {
  try {
    return reinterpret_cast<LRESULT>(buffer_.ContiguousAligned().data());
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
    return 0;
  }
}

// The text is copied and the caller's memory freed: the control never works in a block of somebody else's.
LRESULT TextControl::OnSetHandle(WPARAM handle, LPARAM) {
  auto block = reinterpret_cast<HLOCAL>(handle);
  auto bytes = static_cast<const char*>(::LocalLock(block));
  if (!bytes || bytes == View().head.data()) return 0;
  LRESULT done = OnSetText(0, reinterpret_cast<LPARAM>(bytes));
  ::LocalUnlock(block);
  if (done) ::LocalFree(block);
  return 0;
}

LRESULT TextControl::OnLineIndex(WPARAM line, LPARAM) {
  LineNo number = Signed(line) == -1 ? CaretLine() : LineNo(Signed(line));
  return number.value < 0 || number > buffer_.LastLine() ? -1 : buffer_.LineStart(number).value;
}

LRESULT TextControl::OnLineFromChar(WPARAM at, LPARAM) {
  return Signed(at) == -1 ? CaretLine().value : buffer_.LineOf(BytePos(Signed(at))).value;
}

// For -1, what of the lines of the selection is not selected.
LRESULT TextControl::OnLineLength(WPARAM at, LPARAM) {
  if (Signed(at) == -1) {
    TextRange selection = Selection();
    return selection.start - buffer_.LineStart(buffer_.LineOf(selection.start)) +
           (buffer_.LineRange(buffer_.LineOf(selection.end)).end - selection.end);
  }
  return buffer_.LineRange(buffer_.LineOf(BytePos(Signed(at)))).Length();
}

LRESULT TextControl::OnGetLine(WPARAM line, LPARAM into) {
  LineNo number(Signed(line));
  if (number.value < 0 || number > buffer_.LastLine()) return 0;
  WORD room = 0;
  std::memcpy(&room, reinterpret_cast<const void*>(into), sizeof room);
  TextRange range = buffer_.LineRange(number);
  range.end = std::min(range.end, range.start + room);
  std::string bytes = View().Copy(range);
  std::memcpy(reinterpret_cast<void*>(into), bytes.data(), bytes.size());
  return static_cast<LRESULT>(bytes.size());
}

LRESULT TextControl::OnLineScroll(WPARAM columns, LPARAM lines) {
  ScrollBy(Signed(columns), static_cast<std::int32_t>(lines));
  return 1;
}

// Returns how many lines were scrolled, and that the message was understood in the high word.
LRESULT TextControl::OnScroll(WPARAM action, LPARAM) {
  LineNo before = top_;
  OnVScroll(LOWORD(action), 0, nullptr);
  return MAKELONG(top_ - before, TRUE);
}

LRESULT TextControl::OnScrollCaret(WPARAM, LPARAM) {
  ScrollCaret();
  return 1;
}

LRESULT TextControl::OnEmptyUndo(WPARAM, LPARAM) {
  EmptyUndo();
  return 0;
}

LRESULT TextControl::OnSetModify(WPARAM modified, LPARAM) {
  SetModified(modified != 0);
  return 0;
}

LRESULT TextControl::OnSetReadOnly(WPARAM readOnly, LPARAM) {
  SetReadOnly(readOnly != 0);
  return 1;
}

LRESULT TextControl::OnSetTabStops(WPARAM count, LPARAM stops) {
  auto units = reinterpret_cast<const UINT*>(stops);
  tabUnits_.assign(units, units + (units ? count : 0));
  UpdateTabs();
  return 1;
}

LRESULT TextControl::OnLimitText(WPARAM limit, LPARAM) {
  limit_ = limit == 0 ? kMaxTextSize
                      : static_cast<std::int32_t>(std::min<WPARAM>(limit, static_cast<WPARAM>(kMaxTextSize)));
  return 0;
}

LRESULT TextControl::OnGetRect(WPARAM, LPARAM rect) {
  if (rect) *reinterpret_cast<RECT*>(rect) = ClientRect();
  return 0;
}

LRESULT TextControl::OnPosFromChar(WPARAM at, LPARAM) {
  if (Signed(at) < 0 || BytePos(Signed(at)) > buffer_.End()) return -1;
  POINT point = PointOf(BytePos(Signed(at)));
  return MAKELONG(point.x, point.y);
}

LRESULT TextControl::OnCharFromPos(WPARAM, LPARAM point) {
  BytePos at = PositionAt(detail::PointOf(point));
  return MAKELONG(at.value, buffer_.LineOf(at).value);
}

LRESULT TextControl::OnSetText(WPARAM, LPARAM text) {
  auto bytes = reinterpret_cast<const char*>(text);
  try {
    TextBuffer replacement;
    replacement.Replace({}, bytes ? bytes : "", EditKind::kForgotten);
    Adopt(std::move(replacement));
    return TRUE;
  } catch (const CMemoryException&) {
    Notify(EN_ERRSPACE);
    return FALSE;
  }
}

LRESULT TextControl::OnGetText(WPARAM size, LPARAM into) {
  if (size == 0) return 0;
  auto n = std::min<std::size_t>(size - 1, static_cast<std::size_t>(buffer_.Size()));
  std::string bytes = View().Copy({BytePos(0), BytePos(static_cast<std::int64_t>(n))});
  std::memcpy(reinterpret_cast<void*>(into), bytes.c_str(), n + 1);
  return static_cast<LRESULT>(n);
}

}  // namespace tarrow
