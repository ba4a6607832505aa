#include "ui/bars/status_bar.h"

#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/bars/clock_timer.h"
#include "ui/bars/lock_keys.h"
#include "ui/program/string_ids.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr UINT_PTR kMessageTimer = 1;
constexpr std::size_t kLongestMessage = 128;  // characters
constexpr std::string_view kWidestTask = "Build Target 0:00:00 ";

FontHandle MakeFont(int points, int dpi) {
  LOGFONTW font{};
  font.lfHeight = -::MulDiv(points, dpi, 72);
  font.lfWeight = 200;
  font.lfPitchAndFamily = VARIABLE_PITCH | FF_SWISS;
  ::lstrcpyW(font.lfFaceName, L"MS Sans Serif");
  return FontHandle(::CreateFontIndirectW(&font));
}

int TextWidth(HWND window, HFONT font, std::string_view text) {
  ClientDc dc(window);
  SelectedObject selected(dc, font);
  std::wstring wide = ToWide(text);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, wide.data(), static_cast<int>(wide.size()), &size);
  return size.cx;
}

std::string RegionalText(const wchar_t* key, const wchar_t* otherwise, int longest) {
  wchar_t text[16] = L"";
  ::GetProfileStringW(L"intl", key, otherwise, text, longest + 1);
  return ToUtf8(text);
}

ClockFormat ReadClockFormat() {
  return {RegionalText(L"sTime", L":", 1), ::GetProfileIntW(L"intl", L"iTime", 0) == 0,
          RegionalText(L"s1159", L"am", 4), RegionalText(L"s2359", L"pm", 4)};
}

void DrawLine(HDC dc, int y, int width, int color) {
  RECT line{0, y, width, y + 1};
  ::FillRect(dc, &line, ::GetSysColorBrush(color));
}

}  // namespace

constinit const MessageMap CStatusBar::kMessageMap = MessageMap::Make<
    &CWnd::kMessageMap, On<WM_CREATE, &CStatusBar::OnCreate>, On<WM_DESTROY, &CStatusBar::OnDestroy>,
    On<WM_PAINT, &CStatusBar::OnPaint>, On<WM_SIZE, &CStatusBar::OnSize>, On<WM_TIMER, &CStatusBar::OnTimer>,
    On<WM_SYSCOLORCHANGE, &CStatusBar::OnColorsChanged>, On<kClockTick, &CStatusBar::OnClockTick>,
    On<kLockKeysChanged, &CStatusBar::OnKeysChanged>>();

CStatusBar::~CStatusBar() {
  Destroy();  // while this object still gets the messages of its window
}

bool CStatusBar::CreateBar(HWND parent, int points) {
  static const WindowClass windowClass{L"CStatusBar", 0, 32512, ::GetSysColorBrush(COLOR_BTNFACE)};
  points_ = points;
  WindowSpec spec;
  spec.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  spec.bounds = {0, 0, 0, 0};
  spec.parent = parent;
  return Create(windowClass, spec);
}

bool CStatusBar::OnCreate(const CREATESTRUCTW&) {
  {
    ClientDc dc(Handle());
    dpi_ = ::GetDeviceCaps(dc, LOGPIXELSY);
    font_ = MakeFont(points_, dpi_);
    SelectedObject selected(dc, font_.Get());
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    height_ = Scale(StatusPanes::kMessageTop) + metrics.tmHeight + Scale(StatusPanes::kBottomMargin + 1);
  }
  AddPanes();
  WatchLockKeys(Handle());
  UpdateKeyIndicators();
  return true;
}

void CStatusBar::AddPanes() {
  panes_ = StatusPanes([this](std::string_view text) { return TextWidth(Handle(), font_.Get(), text); },
                       [this](int pixels) { return Scale(pixels); });
  caretPane_ = panes_.AddCaret();
  indicatorPanes_[0] = panes_.AddTwoState(LoadText(kTextInsert), LoadText(kTextOvertype));
  indicatorPanes_[1] = panes_.AddTwoState(LoadText(kTextEdit), LoadText(kTextRead));
  indicatorPanes_[2] = panes_.AddTwoState(LoadText(kTextClean), LoadText(kTextModified));
  indicatorPanes_[3] = panes_.AddWords(LoadText(kTextIndentation));
  autoSavePane_ = panes_.AddTwoState("", LoadText(kTextAutoSave));
  capsPane_ = panes_.AddTwoState("", LoadText(kTextCaps));
  numPane_ = panes_.AddTwoState("", LoadText(kTextNum));
  taskPane_ = panes_.AddText(kWidestTask);
}

void CStatusBar::OnDestroy() {
  SwitchClock(false);
  UnwatchLockKeys(Handle());
}

void CStatusBar::OnSize(UINT, int, int) {
  Invalidate(nullptr, true);  // the clock keeps to the right edge
}

void CStatusBar::OnColorsChanged() {
  Invalidate(nullptr, true);
}

void CStatusBar::ShowMessage(std::string_view text, int seconds) {
  if (!Exists()) return;
  ::KillTimer(Handle(), kMessageTimer);
  bool wasMessage = panes_.ShowsMessage();
  panes_.ShowMessage(text);
  if (wasMessage || panes_.ShowsMessage()) {
    SetText(text);
    Invalidate(nullptr, true);
  }
  if (seconds > 0 && panes_.ShowsMessage())
    ::SetTimer(Handle(), kMessageTimer, static_cast<UINT>(seconds) * 1000, nullptr);
}

void CStatusBar::ShowMessageId(int id, int seconds) {
  std::string text = id == 0 ? std::string() : LoadText(id);
  if (id != 0 && text.empty()) text = FormatTextResource(kTextNoString, {id});
  ShowMessage(text, seconds);
}

void CStatusBar::OnTimer(UINT_PTR id) {
  if (id == kMessageTimer) ShowMessage({}, 0);
}

void CStatusBar::SetCaret(int line, int column) {
  if (panes_.SetCaret(line, static_cast<unsigned>(column))) InvalidatePane(caretPane_);
}

void CStatusBar::SetIndicator(Indicator indicator, int state) {
  SetPane(indicatorPanes_[static_cast<int>(indicator)], state);
}

void CStatusBar::SetTask(std::string_view text) {
  if (panes_.SetText(taskPane_, text)) InvalidatePane(taskPane_);
}

void CStatusBar::ShowIdle() {
  ShowMessage({}, 0);
  SetCaret(0, 0);
  for (int pane : indicatorPanes_) SetPane(pane, -1);
}

void CStatusBar::UpdateKeyIndicators() {
  SetPane(capsPane_, ::GetKeyState(VK_CAPITAL) & 1);
  SetPane(numPane_, ::GetKeyState(VK_NUMLOCK) & 1);
}

LRESULT CStatusBar::OnKeysChanged(WPARAM, LPARAM) {
  UpdateKeyIndicators();
  return 0;
}

void CStatusBar::SetPane(int pane, int state) {
  if (panes_.SetState(pane, state)) InvalidatePane(pane);
}

void CStatusBar::SwitchClock(bool on) {
  if (!Exists() || on == hasClock_) return;
  hasClock_ = on;
  if (on) {
    MeasureClock();
    StartClock(Handle());
  } else {
    StopClock(Handle());
  }
  Invalidate(nullptr, true);
}

void CStatusBar::RefreshClock() {
  if (!hasClock_) return;
  MeasureClock();
  AlignClock();
  Invalidate(nullptr, true);
}

LRESULT CStatusBar::OnClockTick(WPARAM, LPARAM) {
  RECT clock = ClockRect();
  if (!panes_.ShowsMessage()) Invalidate(&clock);
  return 0;
}

void CStatusBar::MeasureClock() {
  clockFormat_ = ReadClockFormat();
  clockWidth_ = std::max(TextWidth(Handle(), font_.Get(), clockFormat_.WidestMorning()),
                         TextWidth(Handle(), font_.Get(), clockFormat_.WidestAfternoon()));
}

int CStatusBar::Scale(int pixels) const {
  return ::MulDiv(pixels, dpi_, 96);
}

RECT CStatusBar::PaneRect(int pane) const {
  PaneSpan span = panes_.Span(pane);
  return {span.left, Scale(StatusPanes::kTop), span.right, height_ - Scale(StatusPanes::kBottomMargin)};
}

RECT CStatusBar::ClockRect() const {
  LONG right = ClientRect().right - Scale(StatusPanes::kFirstLeft);
  return {right - clockWidth_, Scale(StatusPanes::kTop), right, height_ - Scale(StatusPanes::kBottomMargin)};
}

void CStatusBar::InvalidatePane(int pane) {
  if (!Exists() || panes_.ShowsMessage()) return;
  RECT area = PaneRect(pane);
  Invalidate(&area);
}

void CStatusBar::OnPaint() {
  PaintDc dc(Handle());
  SelectedObject font(dc, font_.Get());
  ::SetTextColor(dc, ::GetSysColor(COLOR_BTNTEXT));
  ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
  RECT client = ClientRect();
  PaintEdge(dc, client.right);
  if (panes_.ShowsMessage()) {
    std::wstring text = ToWide(panes_.Message()).substr(0, kLongestMessage);
    ::TextOutW(dc, Scale(StatusPanes::kFirstLeft), Scale(StatusPanes::kMessageTop), text.data(),
               static_cast<int>(text.size()));
    return;
  }
  for (int pane = 0; pane < panes_.Count(); ++pane) PaintPane(dc, PaneRect(pane), panes_.Text(pane));
  if (!hasClock_) return;
  SYSTEMTIME now;
  ::GetLocalTime(&now);
  PaintPane(dc, ClockRect(), clockFormat_.Text(now.wHour, now.wMinute));
}

// A shadow and a light part the bar from what stands above it.
void CStatusBar::PaintEdge(HDC dc, int width) const {
  DrawLine(dc, 0, width, COLOR_BTNSHADOW);
  DrawLine(dc, 1, width, COLOR_BTNHIGHLIGHT);
}

void CStatusBar::PaintPane(HDC dc, const RECT& area, std::string_view text) const {
  RECT frame{area.left - 2, area.top - 1, area.right + 2, area.bottom + 1};
  ::DrawEdge(dc, &frame, BDR_SUNKENOUTER, BF_RECT);
  std::wstring wide = ToWide(text);
  SIZE size{};
  ::GetTextExtentPoint32W(dc, L"X", 1, &size);
  LONG top = area.top + (area.bottom - area.top - size.cy) / 2;
  ::ExtTextOutW(dc, area.left, top, ETO_OPAQUE | ETO_CLIPPED, &area, wide.data(),
                static_cast<UINT>(wide.size()), nullptr);
}

}  // namespace tarrow
