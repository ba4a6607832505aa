#include "viewer/views/file_view.h"

#include "resources/resource.h"
#include "ui/commands/commands.h"
#include "viewer/views/dc_surface.h"
#include "viewer/views/view_timers.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

// Drawn anew at every size, as the edit windows are.
const WindowClass kClass{L"TarrowFileView", CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, 32512,
                         reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), IDI_VIEW};

constexpr UINT kWatchPeriod = 1000;  // milliseconds between two looks at the file

}  // namespace

constinit const MessageMap CFileView::kMessageMap = MessageMap::Make<
    &CTwChild::kMessageMap, On<WM_CREATE, &CFileView::OnCreate>, On<WM_SIZE, &CFileView::OnSize>,
    On<WM_PAINT, &CFileView::OnPaint>, On<WM_ERASEBKGND, &CFileView::OnEraseBackground>,
    On<WM_SETFOCUS, &CFileView::OnSetFocus>, On<WM_KILLFOCUS, &CFileView::OnKillFocus>,
    On<WM_TIMER, &CFileView::OnTimer>, On<WM_KEYDOWN, &CFileView::OnKeyDown>,
    On<WM_VSCROLL, &CFileView::OnVScroll>, On<WM_HSCROLL, &CFileView::OnHScroll>,
    On<WM_LBUTTONDOWN, &CFileView::OnLButtonDown>, On<WM_LBUTTONDBLCLK, &CFileView::OnLButtonDblClk>,
    On<WM_MOUSEMOVE, &CFileView::OnMouseMove>, On<WM_LBUTTONUP, &CFileView::OnLButtonUp>,
    On<WM_CAPTURECHANGED, &CFileView::OnCaptureChanged>, On<WM_MOUSEWHEEL, &CFileView::OnMouseWheel>,
    On<WM_MOUSEHWHEEL, &CFileView::OnMouseHWheel>, On<2026, &CFileView::OnMove<ViewMove::kPageUp>>,
    On<2027, &CFileView::OnMove<ViewMove::kPageDown>>, On<2028, &CFileView::OnMove<ViewMove::kTopOfWindow>>,
    On<2029, &CFileView::OnMove<ViewMove::kBottomOfWindow>>,
    On<2030, &CFileView::OnMove<ViewMove::kRowStart>>, On<2031, &CFileView::OnMove<ViewMove::kRowEnd>>,
    On<2032, &CFileView::OnMove<ViewMove::kFileStart>>, On<2033, &CFileView::OnMove<ViewMove::kFileEnd>>,
    On<2034, &CFileView::OnMove<ViewMove::kUp>>, On<2035, &CFileView::OnMove<ViewMove::kDown>>,
    On<2036, &CFileView::OnMove<ViewMove::kScrollUp>>, On<2037, &CFileView::OnMove<ViewMove::kScrollDown>>,
    On<2038, &CFileView::OnMove<ViewMove::kLeft>>, On<2039, &CFileView::OnMove<ViewMove::kRight>>,
    OnCommand<kEditCopy, &CFileView::OnCopy, &CFileView::HasSelection>,
    OnCommand<kEditCopyAppend, &CFileView::OnCopyAppend, &CFileView::HasSelection>,
    OnCommand<kSearchGotoLine, &CFileView::OnGotoCommand>,
    OnCommand<kHelpFileStats, &CFileView::OnFileStats>>();

CFileView::CFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags)
    : CTwChild(program, flags), watch_(path) {
  SetFlag(kFileView, true);
  SetPath(path);
}

bool CFileView::CreateView() {
  const DocumentServices& program = Program();
  bool maximised = program.settings.arrange == ArrangeMode::kMaximised;
  DWORD style = (Has(kHorizontalScroll) ? WS_HSCROLL : 0) | (Has(kVerticalScroll) ? WS_VSCROLL : 0);
  if (CreateChild(program.frame, kClass, Path(), style, maximised)) return true;
  program.messages.ReportOutOfMemory();
  return false;
}

bool CFileView::OnCreate(const CREATESTRUCTW& create) {
  Measure();
  ::SetTimer(Handle(), kWatchTimer, kWatchPeriod, nullptr);
  return CTwChild::OnCreate(create);
}

void CFileView::Measure() {
  font_.emplace(Font());
  cell_ = {font_->AverageWidth(), font_->LineHeight()};
}

void CFileView::OnFontChanged() {
  if (!Exists()) return;
  Measure();
  RECT client = ClientRect();
  OnSize(SIZE_RESTORED, client.right, client.bottom);
  Invalidate();
  if (hasFocus_) MakeCaret();
}

void CFileView::ApplySettings(const LOGFONTW* font) {
  if (font) SetFont(*font);
}

void CFileView::OnSize(UINT kind, int width, int height) {
  CTwChild::OnSize(kind, width, height);
  if (kind == SIZE_MINIMIZED) return PublishCaret();
  page_ = {std::max(1, height / cell_.height), std::max(1, width / cell_.width)};
  UpdateScrollBars();
  PlaceCaret();
  PublishCaret();
}

// The bar must not cover the caret: when that is in the last row in view, the view is to scroll once the bar
// has taken its room.
void CFileView::ShowHorizontalScroll(bool show) {
  bool atBottom = state_.Caret().row == state_.top + (page_.rows - 1);
  if (show && atBottom) Post(static_cast<UINT>(ViewMove::kScrollDown));
  CTwChild::ShowHorizontalScroll(show);
  UpdateScrollBars();
}

void CFileView::OnPaint() {
  Reading([&] {
    if (Refresh()) AdaptToFile();
  });
  std::optional<CFileException> failure;
  {
    PaintDc dc(Handle());
    DcSurface surface(dc, font_->Font());
    RECT client = ClientRect();
    PixelRect area{0, 0, client.right, client.bottom};
    try {
      if (Rows())
        PaintView(surface, *Rows(), state_, cell_, area, dc.Area().top, dc.Area().bottom);
      else
        PaintEmpty(surface, area);
    } catch (const CFileException& error) {
      failure = error;
    }
  }
  if (failure) return Fail(*failure);
  UpdateScrollBars();  // a longer row may have come into view
}

void CFileView::AdaptToFile() {
  Change([](const ViewState& state, ViewPage page, ViewRows& rows) { return WithinRows(state, page, rows); });
  UpdateScrollBars();
  Invalidate();
}

// The file goes first: the message box lets the window be painted.
void CFileView::Fail(const CFileException& error) {
  CloseFile();
  if (isDragging_) ::ReleaseCapture();
  Invalidate();
  Program().messages.ShowFileError(nullptr, error);
  Post(WM_CLOSE);
}

void CFileView::OnSetFocus(HWND from) {
  CTwChild::OnSetFocus(from);
  hasFocus_ = wasEntered_ = true;
  MakeCaret();
}

void CFileView::MakeCaret() {
  ::CreateCaret(Handle(), nullptr, cell_.width, cell_.height);
  PlaceCaret();
  ::ShowCaret(Handle());
}

void CFileView::OnKillFocus(HWND) {
  hasFocus_ = false;
  ::DestroyCaret();
}

void CFileView::OnTimer(UINT_PTR id) {
  if (id == kDragTimer)
    DragOn();
  else if (id == kWatchTimer)
    LookAtFile();
}

// Nothing is looked at while a search or another long operation has disabled the frame. What takes long waits
// until the user comes back to the window.
void CFileView::LookAtFile() {
  if (!Rows() || !::IsWindowVisible(Handle()) || !::IsWindowEnabled(Frame().Handle())) return;
  bool mayTakeLong = std::exchange(wasEntered_, false);
  hasChanged_ |= watch_.HasChanged(Path());
  if (std::exchange(hasChanged_, false)) hasChanged_ = !Reopen(mayTakeLong);
}

}  // namespace tarrow
