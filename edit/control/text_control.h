// TextControl: the window in which a text is edited, class `TarrowEdit`.
//
// It answers the messages of a multi-line edit control with their meaning and sends its notifications, but
// its text is a TextBuffer: bytes stay what they are, NULs too, and what a key costs does not depend on the
// size of the text. Inside the program use the typed functions; the messages are there for everybody else.
// The window class is an ANSI one, so that the bytes of messages arrive unconverted; typed characters are
// taken out of the message loop as UTF-16 (PreDispatch).
//
// Where memory ends, the text stays as it was, the parent is told EN_ERRSPACE, and the function returns
// false. Besides the usual notifications the parent is posted kCaretMoved after keys, clicks, cut, paste and
// undo.
#pragma once

#include "edit/control/drawn_row.h"
#include "edit/control/font_widths.h"
#include "edit/control/line_layout.h"
#include "edit/control/text_colouring.h"
#include "edit/text/charset.h"
#include "edit/text/text_buffer.h"
#include "framework/wheel.h"
#include "framework/wnd.h"

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace tarrow {

// The notification code that says that the caret may have moved.
inline constexpr UINT kCaretMoved = 0x700;

// What becomes of characters that the charset of a text lacks.
enum class MissingCharacters {
  kConvert,     // the text is converted to UTF-8
  kSubstitute,  // "?" stands for each
  kRefuse,      // nothing is inserted
};

// What the owner of a control may do instead of it; functions that return a bool say whether it has.
class TextControlHooks {
 public:
  // A character was typed; '\r' is Enter.
  virtual bool OnCharacter(char32_t) { return false; }
  virtual bool OnKeyDown(UINT /*key*/, bool /*shift*/, bool /*control*/) { return false; }
  virtual bool OnDoubleClick(BytePos) { return false; }

  // Asked before characters are inserted that the text's charset lacks.
  virtual MissingCharacters OnMissingCharacters() { return MissingCharacters::kSubstitute; }

 protected:
  ~TextControlHooks() = default;
};

class TextControl final : public CWnd {
 public:
  // Creates the control; `style` is window and ES_ styles, of which ES_NOHIDESEL and ES_READONLY count. False
  // when it could not be made.
  [[nodiscard]] bool CreateControl(HWND parent, int id, DWORD style, const RECT& bounds);

  // `hooks` must outlive the control or be taken back.
  void SetHooks(TextControlHooks* hooks) { hooks_ = hooks; }

  // The text.
  const TextBuffer& Buffer() const { return buffer_; }
  TextView View() const { return buffer_.View(); }
  const Charset& TextCharset() const { return charset_; }

  // Who follows the changes of the text, by whatever way they come.
  void SetObserver(TextObserver* observer) { buffer_.SetObserver(observer); }

  // The whole text in one piece, valid until it changes.
  std::string_view ContiguousText() { return buffer_.Contiguous(); }

  // Replaces the whole text by a loaded one: caret at the start, unmodified, nothing to undo. The charset is
  // what its bytes tell.
  void Adopt(TextBuffer&& text);

  // As Adopt, but the caret stays at its line and column, and the view where it is, as far as the text
  // allows.
  void AdoptInPlace(TextBuffer&& text);

  // The selection, in ascending order, and the end of it that the caret is at.
  TextRange Selection() const;
  BytePos Caret() const { return caret_; }

  // How many characters of its line stand before a place.
  std::int32_t ColumnOf(BytePos at) const;

  // Selects from `anchor` to `caret` and scrolls the caret into view. An empty selection is moved out of
  // characters and line ends; any other is taken as it is.
  void Select(BytePos anchor, BytePos caret);
  void Select(TextRange range) { Select(range.start, range.end); }

  // Posts kCaretMoved to the parent, on behalf of whoever moves the caret by these functions.
  void PostCaretMoved() const;

  // The line of the start of the selection: what commands mean by the caret's line.
  LineNo CaretLine() const { return buffer_.LineOf(Selection().start); }

  // Changes. The caret goes behind the new text, or where `selection` (in the new text) says.
  bool ReplaceSelection(std::string_view text, EditKind kind = EditKind::kCommand);
  bool Replace(TextRange range, std::string_view text, EditKind kind = EditKind::kCommand);
  bool Apply(const EditList& edits, TextRange selection);

  // Puts text behind the end, for whoever writes and does not edit: nothing of it can be undone, the text
  // does not count as modified, and the parent is not told. A caret at the end stays at the end; any other,
  // and the view, stays where it is. Throws CMemoryException.
  void Append(std::string_view text);

  // Types a character as the keyboard does: over the selection, in the charset of the text; '\r' breaks the
  // line.
  bool Type(char32_t code);

  // Inserts a text that is in the charset `from` over the selection, converted where that differs.
  bool Insert(std::string_view text, const Charset& from);

  // Sees to it that characters can be inserted: a text that is all ASCII becomes UTF-8, any other that lacks
  // some of them is what the hooks say. False when they refuse, or memory ends.
  bool MakeRoomFor(std::u16string_view wide);

  // Makes a text in the code page UTF-8, the same characters selected as before, nothing to undo.
  bool ConvertToUtf8();

  // False also when there is nothing to undo, or to do again, or the control is read-only. The text that
  // comes back is selected; after the undo of a list, what was selected before it. With one level of undo
  // nothing is done again but by undoing twice.
  bool UndoLast();
  bool RedoNext();
  bool CanUndo() const { return buffer_.CanUndo(); }
  bool CanRedo() const { return buffer_.CanRedo(); }
  void EmptyUndo() { buffer_.EmptyUndo(); }

  // How many units can be undone, from now on.
  void SetUndoLevels(int levels);
  bool HasUndoLevels() const { return buffer_.HasUndoLevels(); }

  // With several levels of undo, a text that is back at what it was when it was last set unmodified is
  // unmodified again; set modified, it is so for good.
  bool IsModified() const { return modified_; }
  void SetModified(bool modified);
  bool IsReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);

  // The clipboard. Cutting and pasting do nothing in a read-only control. False when nothing was done.
  bool Copy();
  bool Cut();
  bool Paste();
  bool Clear();

  // What tells the parts of the text (null: nothing), and how they are to look (nothing: all the same). The
  // lexer outlives the control, or is taken back.
  void SetLexer(const Lexer* lexer);
  void SetStyles(const std::optional<StyleChoices>& choices);
  const LineStates& States() const { return colouring_.States(); }

  // A tab stop every so many columns.
  void SetTabColumns(int columns);
  void SetFont(HFONT font);
  int LineHeight() const { return font_->LineHeight(); }

  // The view, in whole lines; scrolling stops where the last line is at the top.
  LineNo TopLine() const { return top_; }
  int LinesInView() const;
  void ScrollBy(std::int64_t columns, std::int64_t lines);
  void ScrollCaret();

  // The caret position nearest to a point of the client area, and back: the upper left corner of a character.
  BytePos PositionAt(POINT client) const;
  POINT PointOf(BytePos at) const;

  bool PreDispatch(const MSG& message) override;

 private:
  static const MessageMap kMessageMap;
  static const MessageMap kEditMessages;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  LRESULT DefaultProc(UINT message, WPARAM w, LPARAM l) override;

  // Changing (text_control.cpp)
  template <typename Action>
  bool Change(TextRange range, Action action);
  bool TakeBack(std::optional<TextRange> before,
                std::optional<TextRange> (TextBuffer::*turn)(std::optional<TextRange>));
  std::string_view FitIn(TextRange range, std::string_view text);
  void SetSelection(BytePos anchor, BytePos caret);
  void MoveCaret(BytePos to, bool extend);
  void MoveCaretKeepingColumn(LineNo line, bool extend);
  void Notify(UINT code) const;
  bool OnCreate(const CREATESTRUCTW& create);
  LRESULT OnSetFont(WPARAM font, LPARAM redraw);
  LRESULT OnGetFont(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(font_->Font()); }
  void UpdateTabs();
  void MakeCaret();
  void OnFocus(HWND);
  void OnKillFocus(HWND);
  LRESULT OnGetDialogCode(WPARAM, LPARAM) { return DLGC_WANTALLKEYS | DLGC_WANTARROWS | DLGC_WANTCHARS; }

  // Messages of an edit control (text_control_messages.cpp)
  LRESULT OnGetSel(WPARAM start, LPARAM end);
  LRESULT OnSetSel(WPARAM start, LPARAM end);
  LRESULT OnReplaceSel(WPARAM canUndo, LPARAM text);
  LRESULT OnGetHandle(WPARAM, LPARAM);
  LRESULT OnSetHandle(WPARAM handle, LPARAM);
  LRESULT OnLineIndex(WPARAM line, LPARAM);
  LRESULT OnLineFromChar(WPARAM at, LPARAM);
  LRESULT OnLineLength(WPARAM at, LPARAM);
  LRESULT OnGetLine(WPARAM line, LPARAM into);
  LRESULT OnGetLineCount(WPARAM, LPARAM) { return buffer_.LineCount().value; }
  LRESULT OnGetFirstVisibleLine(WPARAM, LPARAM) { return top_.value; }
  LRESULT OnLineScroll(WPARAM columns, LPARAM lines);
  LRESULT OnScroll(WPARAM action, LPARAM);
  LRESULT OnScrollCaret(WPARAM, LPARAM);
  LRESULT OnCanUndo(WPARAM, LPARAM) { return CanUndo(); }
  LRESULT OnUndo(WPARAM, LPARAM) { return UndoLast(); }
  LRESULT OnEmptyUndo(WPARAM, LPARAM);
  LRESULT OnGetModify(WPARAM, LPARAM) { return modified_; }
  LRESULT OnSetModify(WPARAM modified, LPARAM);
  LRESULT OnSetReadOnly(WPARAM readOnly, LPARAM);
  LRESULT OnSetTabStops(WPARAM count, LPARAM stops);
  LRESULT OnLimitText(WPARAM limit, LPARAM);
  LRESULT OnGetLimitText(WPARAM, LPARAM) { return limit_; }
  LRESULT OnGetRect(WPARAM, LPARAM rect);
  LRESULT OnPosFromChar(WPARAM at, LPARAM);
  LRESULT OnCharFromPos(WPARAM, LPARAM point);
  LRESULT OnSetText(WPARAM, LPARAM text);
  LRESULT OnGetText(WPARAM size, LPARAM into);
  LRESULT OnGetTextLength(WPARAM, LPARAM) { return buffer_.Size(); }
  LRESULT OnCut(WPARAM, LPARAM) { return Cut(); }
  LRESULT OnCopy(WPARAM, LPARAM) { return Copy(); }
  LRESULT OnPaste(WPARAM, LPARAM) { return Paste(); }
  LRESULT OnClear(WPARAM, LPARAM) { return Clear(); }

  // Keys (text_control_keys.cpp)
  void OnKeyDown(UINT key, LPARAM data);
  void OnChar(UINT byte, LPARAM data);
  LRESULT OnUnichar(WPARAM code, LPARAM);
  LRESULT OnSysChar(WPARAM key, LPARAM data);
  LRESULT OnImeStart(WPARAM, LPARAM);
  LRESULT OnImeComposition(WPARAM w, LPARAM what);
  bool MoveByKey(UINT key, bool shift, bool control);
  bool ScrollByKey(UINT key, bool control);
  bool EditByKey(UINT key, bool shift, bool control);
  void TakeUnit(char16_t unit);
  void TakeCharacter(char32_t code);
  void TakeControlCharacter(char32_t code);
  void DeleteTo(BytePos to);
  void DeleteSelectionOr(BytePos to);
  BytePos HorizontalTarget(UINT key, bool control, bool extend) const;
  void MoveByPage(int direction, bool extend);

  // Mouse (text_control_mouse.cpp)
  void OnLButtonDown(UINT keys, POINT at);
  void OnLButtonDblClk(UINT keys, POINT at);
  void OnMouseMove(UINT keys, POINT at);
  void OnLButtonUp(UINT keys, POINT at);
  void OnRButtonDown(UINT keys, POINT at);
  LRESULT OnCaptureChanged(WPARAM, LPARAM);
  void OnTimer(UINT_PTR id);
  void OnMouseWheel(int delta, UINT keys, POINT screen);
  void OnMouseHWheel(int delta, UINT keys, POINT screen);
  void BeginDrag(TextRange anchor);
  void DragTo(POINT at);

  // Scrolling (text_control_scroll.cpp)
  void OnSize(UINT kind, int width, int height);
  void OnVScroll(UINT code, UINT position, HWND bar);
  void OnHScroll(UINT code, UINT position, HWND bar);
  LRESULT OnStyleChanged(WPARAM, LPARAM);
  void ScrollTo(LineNo top, Pixels left);
  LineNo LastTop() const;
  void MakeVisible(BytePos at);
  void UpdateScrollBars();
  void PlaceCaret();
  std::int64_t TrackPosition(int bar) const;

  // Painting (text_control_paint.cpp)
  void OnPaint();
  bool OnEraseBackground(HDC) { return true; }
  void OnSysColorChange() { RestartColours(); }
  void PaintNow(LineNo line);
  void PaintLine(HDC dc, LineNo line, const RECT& row);
  std::vector<LinePiece> PiecesOf(LineNo line, const RECT& row);
  void DrawPieces(HDC dc, std::span<const LinePiece> pieces, const RECT& row);
  void FillBehind(HDC dc, LineNo line, std::span<const LinePiece> pieces, const RECT& row);
  RowChange MoveWhatIsThere(HDC dc, std::span<const LinePiece> pieces, const RECT& row) const;
  TextRange ShownSelection() const { return ShowsSelection() ? Selection() : TextRange{}; }
  void InvalidateLines(LineNo first, LineNo last) const;
  void InvalidateFrom(LineNo first) const;
  void InvalidateSelectionChange(TextRange before, TextRange after) const;
  bool ShowsSelection() const;
  LineLayout LayoutOf(const TextView& view, LineNo line) const;
  Pixels XOf(BytePos at) const;

  // Colours (text_control_colours.cpp)
  static constexpr UINT_PTR kDragTimer = 1, kSettleTimer = 2;
  void RestartColours();
  LineRange LinesOfView() const;
  void InvalidateStyles(LineRange lines) const;
  void SettleView();
  void WantIdleTime();
  void OnIdleTime();

  TextControlHooks* hooks_ = nullptr;
  TextBuffer buffer_;
  Charset charset_;
  BytePos anchor_, caret_;
  int undoLevels_ = 1;
  std::optional<Pixels> column_;  // where the caret wants to be in the lines it passes

  TextColouring colouring_;
  bool settles_ = false;  // the timer runs
  DrawnRow drawn_;        // by the last key

  std::unique_ptr<FontWidths> font_;
  std::vector<int> tabUnits_;  // dialog units; empty: every eight columns
  TabStops tabs_;
  mutable LayoutCheckpoints checkpoints_;  // of the layout
  mutable LayoutCheckpoints counts_;       // of the count of characters
  LineNo top_;
  Pixels left_ = 0;
  Pixels widest_ = 0;  // of the lines seen so far: what the horizontal bar spans

  std::int32_t limit_ = kMaxTextSize;
  bool modified_ = false;
  bool readOnly_ = false;
  bool hasFocus_ = false;

  std::optional<TextRange> drag_;  // what a drag keeps selected while the mouse is held
  Wheel wheel_, wheelSideways_;
  bool wordDeleted_ = false;  // by the key whose character is still to come
  char16_t highSurrogate_ = 0;
  std::string leadByte_;
};

}  // namespace tarrow
