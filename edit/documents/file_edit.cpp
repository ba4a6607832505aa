#include "edit/documents/file_edit.h"

#include "edit/documents/buffer_lines.h"
#include "edit/lexers/lexers.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <windowsx.h>

#include <algorithm>

namespace tarrow {
namespace {

constexpr int kMargin = 8;  // pixels, left of the control

// Drawn anew at every size: where one maximised window takes the place of another, Wine would keep pixels
// that belonged to the other.
const WindowClass kClass{L"TarrowFileEdit", CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, 32512,
                         reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), IDI_EDIT};

// Windows without a name are numbered for the life of the program; no number comes twice.
int untitledWindows = 0;

}  // namespace

constinit const MessageMap CTwFileEdit::kMessageMap =
    MessageMap::Make<&CTwChild::kMessageMap, On<WM_CREATE, &CTwFileEdit::OnCreate>,
                     On<WM_SETFOCUS, &CTwFileEdit::OnSetFocus>, On<WM_SIZE, &CTwFileEdit::OnSize>,
                     On<WM_LBUTTONDOWN, &CTwFileEdit::OnLButtonDown>,
                     On<WM_SYSCOLORCHANGE, &CTwFileEdit::OnSysColorChange>,
                     On<WM_LBUTTONDBLCLK, &CTwFileEdit::OnLButtonDblClk>,
                     OnNotify<CTwFileEdit::kControlId, EN_CHANGE, &CTwFileEdit::OnChange>,
                     OnNotify<CTwFileEdit::kControlId, EN_ERRSPACE, &CTwFileEdit::OnErrSpace>,
                     OnNotify<CTwFileEdit::kControlId, EN_HSCROLL, &CTwFileEdit::OnHScroll>,
                     OnNotify<CTwFileEdit::kControlId, kCaretMoved, &CTwFileEdit::OnCaretMoved>,
                     OnCommand<kFileSave, &CTwFileEdit::OnSave, &CTwFileEdit::CanSave>,
                     OnCommand<kFileSaveAs, &CTwFileEdit::OnSaveAs>,
                     OnCommand<kEditMerge, &CTwFileEdit::OnMerge, &CTwFileEdit::CanChange>,
                     OnCommand<kHelpFileStats, &CTwFileEdit::OnFileStats>>();

CTwFileEdit::CTwFileEdit(const DocumentServices& program, std::uint32_t flags)
    : CTwChild(program, flags), commands_(program, control_, *this) {
  SetFlag(kTextWindow, true);
}

CTwFileEdit* CTwFileEdit::New(const DocumentServices& program, std::uint32_t flags) {
  auto* window = new CTwFileEdit(program, flags);  // belongs to its window
  window->SetUntitled(LoadText(kTextUntitled) + std::to_string(++untitledWindows));
  return window->CreateEdit() ? window : nullptr;
}

bool CTwFileEdit::CreateEdit() {
  return CreateEdit(kClass);
}

bool CTwFileEdit::CreateEdit(const WindowClass& windowClass) {
  const DocumentServices& program = Program();
  bool maximised = program.settings.arrange == ArrangeMode::kMaximised;
  if (CreateChild(program.frame, windowClass, Path(), 0, maximised)) return true;
  program.messages.ReportOutOfMemory();
  return false;
}

bool CTwFileEdit::OnCreate(const CREATESTRUCTW& create) {
  DWORD style = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_NOHIDESEL;
  if (Has(kHorizontalScroll)) style |= WS_HSCROLL;
  if (Has(kVerticalScroll)) style |= WS_VSCROLL;
  if (!control_.CreateControl(Handle(), kControlId, style, {})) return false;
  control_.SetReadOnly(Has(kReadOnly));
  control_.SetUndoLevels(Program().settings.undoLevels);
  OnFontChanged();
  control_.SetStyles(Program().styles);
  OnPathChanged();
  return CTwChild::OnCreate(create);
}

const Lexer* CTwFileEdit::TextLexer() const {
  return Has(kUntitled) ? nullptr : LexerFor(Path());
}

void CTwFileEdit::OnFontChanged() {
  if (!control_.Exists()) return;
  control_.SetFont(Font());
  control_.SetTabColumns(Program().settings.tabSize);
}

void CTwFileEdit::ApplySettings(const LOGFONTW* font) {
  if (font)
    SetFont(*font);
  else
    OnFontChanged();
}

void CTwFileEdit::OnSetFocus(HWND from) {
  CTwChild::OnSetFocus(from);
  if (!::IsIconic(Handle())) ::SetFocus(control_.Handle());
}

void CTwFileEdit::OnSize(UINT kind, int width, int height) {
  CTwChild::OnSize(kind, width, height);
  if (kind != SIZE_MINIMIZED)
    ::MoveWindow(control_.Handle(), kMargin, 0, std::max(0, width - kMargin), height, TRUE);
  else if (IsActive())
    OnCaretMoved();
}

// In the margin: a click goes to the start of the line, and may be drawn on into a selection of lines.
void CTwFileEdit::OnLButtonDown(UINT keys, POINT client) {
  ::SetFocus(control_.Handle());
  if (!(keys & MK_CONTROL)) {
    control_.Send(WM_LBUTTONDOWN, keys, MAKELPARAM(0, client.y));
    return;
  }
  control_.Select(BytePos(0), control_.Buffer().End());
  OnCaretMoved();
}

void CTwFileEdit::OnLButtonDblClk(UINT, POINT) {
  const TextBuffer& text = control_.Buffer();
  LineNo line = control_.CaretLine();
  control_.Select(text.LineStart(line), line == text.LastLine() ? text.End() : text.LineStart(line + 1));
  OnCaretMoved();
}

void CTwFileEdit::OnChange() {
  ShowModified(control_.IsModified());
  // A change by another program comes past the queue; the tool bar follows what comes through it.
  if (::InSendMessage()) Frame().Post(WM_NULL);
}

void CTwFileEdit::SetModified(bool modified) {
  control_.SetModified(modified);
  ShowModified(modified);
}

void CTwFileEdit::ShowModified(bool modified) {
  if (Has(kModified) == modified) return;
  SetFlag(kModified, modified);
  Program().events.ChildRetitled(*this);
  Program().status.PublishIndicator(Indicator::kModification, ModificationState(Flags()));
}

void CTwFileEdit::ChangeEditFlags(std::uint32_t flags) {
  SetFlags(flags);
  control_.SetReadOnly(Has(kReadOnly));
  CTwChild::PublishState();
}

bool CTwFileEdit::QueryCommand(UINT id, CommandState& state) const {
  if (CTwChild::QueryCommand(id, state)) return true;
  if (!FindEditingCommand(id)) return false;
  state = commands_.State(id);
  return true;
}

bool CTwFileEdit::RunCommand(UINT id, UINT code, HWND control, LRESULT& result) {
  if (CTwChild::RunCommand(id, code, control, result)) return true;
  return !control && commands_.Run(id);
}

void CTwFileEdit::OnErrSpace() {
  Alert(MB_ICONSTOP);
  Program().status.ShowStatusId(kTextOutOfMemory, 5);
}

// Who goes sideways again and again, and has a mouse, wants the bar.
void CTwFileEdit::OnHScroll() {
  if (programScrolled_ && !Has(kHorizontalScroll) && ::GetSystemMetrics(SM_MOUSEPRESENT))
    ShowHorizontalScroll(true);
  programScrolled_ = true;
}

// The bar must not cover the caret: when that is in the bottom line, the text moves up first.
void CTwFileEdit::ShowHorizontalScroll(bool show) {
  std::int64_t below = control_.LinesInView() - (control_.CaretLine().value - control_.TopLine().value);
  if (show && below == 1) {
    control_.ScrollBy(0, 1);
    programScrolled_ = false;
  }
  CTwChild::ShowHorizontalScroll(show);
}

void CTwFileEdit::OnCaretMoved() {
  if (::IsIconic(Handle())) return Program().status.PublishCaret(0, 0);
  BytePos at = control_.Selection().end;
  LineNo line = control_.Buffer().LineOf(at);
  bool countsCharacters = control_.TextCharset().IsUtf8();
  std::int32_t column = countsCharacters ? control_.ColumnOf(at) : at - control_.Buffer().LineStart(line);
  Program().status.PublishCaret(static_cast<int>(line.value) + 1, column + 1);
}

void CTwFileEdit::ShowPlace(std::uint32_t line, std::uint32_t column) {
  const TextBuffer& text = control_.Buffer();
  auto number = std::min<std::int64_t>(std::max<std::uint32_t>(line, 1) - 1, text.LastLine().value);
  TextRange range = text.LineRange(LineNo(number));
  BytePos at = range.start;
  for (; column > 1 && at < range.end; --column) at = control_.TextCharset().Next(text.View(), at);
  control_.Select(at, at);
  control_.ScrollBy(0, number - control_.LinesInView() / 4 - control_.TopLine().value);
  OnCaretMoved();
}

std::unique_ptr<PrintedLines> CTwFileEdit::LinesToPrint(PrintedPart part) const {
  TextRange all{BytePos(0), control_.Buffer().End()};
  return std::make_unique<BufferLines>(control_.Buffer(), control_.TextCharset(),
                                       part == PrintedPart::kSelection ? control_.Selection() : all);
}

void CTwFileEdit::PublishState() {
  CTwChild::PublishState();
  OnCaretMoved();
}

bool CTwFileEdit::QuerySave(int message) {
  if (!Has(kModified)) return true;
  int answer = IDYES;
  bool asks = message != 0 && !Program().settings.Has(kSaveWithoutAsking);
  // Who is asked about a text must see it.
  if (asks || Has(kUntitled)) Frame().ActivateChild(*this);
  if (asks)
    answer =
        Program().messages.ShowMessageBox(nullptr, MB_YESNOCANCEL | MB_ICONEXCLAMATION, message, {Path()});
  if (answer != IDYES) return answer == IDNO;
  return Has(kUntitled) ? SaveAs() : Save();
}

}  // namespace tarrow
