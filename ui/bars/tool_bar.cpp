#include "ui/bars/tool_bar.h"

#include "framework/unicode.h"
#include "ui/commands/menus.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

namespace tarrow {

namespace {

// Sizes at 96 dots per inch.
constexpr int kMargin = 3;    // around a picture, within its button
constexpr int kSurround = 2;  // around the buttons
constexpr int kGroupGap = 8;

// What a button is called, "Cut (Ctrl+X)": the text of its menu item without the marks that menus need.
std::string TipText(std::string_view item) {
  std::size_t tab = std::min(item.find('\t'), item.size());
  std::string tip;
  for (char c : item.substr(0, tab))
    if (c != '&' && c != '.') tip += c;
  if (tab + 1 < item.size()) tip.append(" (").append(item.substr(tab + 1)).append(")");
  return tip;
}

}  // namespace

constinit const MessageMap CToolBar::kMessageMap =
    MessageMap::Make<&CWnd::kMessageMap, On<WM_CREATE, &CToolBar::OnCreate>, On<WM_SIZE, &CToolBar::OnSize>,
                     On<WM_PAINT, &CToolBar::OnPaint>, On<WM_SYSCOLORCHANGE, &CToolBar::OnColorsChanged>,
                     On<WM_LBUTTONDOWN, &CToolBar::OnButtonDown>, On<WM_LBUTTONUP, &CToolBar::OnButtonUp>,
                     On<WM_MOUSEMOVE, &CToolBar::OnMouseMove>, On<WM_MOUSELEAVE, &CToolBar::OnMouseLeave>,
                     On<WM_CAPTURECHANGED, &CToolBar::OnCaptureChanged>,
                     On<WM_NOTIFY, &CToolBar::OnNotify>>();

bool CToolBar::CreateBar(HWND parent, bool withProject, Query query, ItemText itemText) {
  static const WindowClass windowClass{L"CToolBar", 0, 32512, ::GetSysColorBrush(COLOR_BTNFACE)};
  query_ = std::move(query);
  itemText_ = std::move(itemText);
  withProject_ = withProject;
  WindowSpec spec;
  spec.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  spec.bounds = {0, 0, 0, 0};
  spec.parent = parent;
  return Create(windowClass, spec);
}

bool CToolBar::OnCreate(const CREATESTRUCTW&) {
  {
    ClientDc dc(Handle());
    dpi_ = ::GetDeviceCaps(dc, LOGPIXELSY);
  }
  images_ = std::make_unique<ToolImages>(dpi_);
  hot_ = pressed_ = kNone;
  tips_ = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, Handle(), nullptr,
                            ModuleInstance(), nullptr);
  PlaceAll();
  return true;
}

int CToolBar::Scale(int pixels) const {
  return ::MulDiv(pixels, dpi_, 96);
}

int CToolBar::ButtonSize() const {
  return images_->Size() + 2 * Scale(kMargin) + 2;
}

std::vector<PlacedButton> CToolBar::Place(int width) const {
  return PlaceButtons(withProject_, {width, Scale(kSurround), ButtonSize(), Scale(kGroupGap)});
}

int CToolBar::HeightFor(int width) const {
  return images_ ? (Place(width).back().row + 1) * ButtonSize() + 2 * Scale(kSurround) : 0;
}

void CToolBar::OnSize(UINT, int width, int) {
  std::vector<PlacedButton> places = Place(width);
  bool isSame = std::ranges::equal(places, buttons_, [](const PlacedButton& place, const Button& button) {
    return place.left == button.place.left && place.row == button.place.row;
  });
  if (!isSame) PlaceAll();
}

void CToolBar::PlaceAll() {
  buttons_.clear();
  for (const PlacedButton& place : Place(static_cast<int>(ClientRect().right)))
    buttons_.push_back({place, CanAct(place.button)});
  MakeTips();
  Invalidate(nullptr, true);
}

// A tip per place; the text is asked for when it is shown.
void CToolBar::MakeTips() {
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = Handle();
  for (tool.uId = 0; tool.uId < static_cast<UINT_PTR>(kToolImageCount); ++tool.uId)
    ::SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tool.lpszText = LPSTR_TEXTCALLBACKW;
  for (tool.uId = 0; tool.uId < buttons_.size(); ++tool.uId) {
    tool.rect = ButtonRect(static_cast<int>(tool.uId));
    ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

LRESULT CToolBar::OnNotify(WPARAM, LPARAM l) {
  auto* header = reinterpret_cast<NMHDR*>(l);
  if (header->code != TTN_GETDISPINFOW || header->idFrom >= buttons_.size()) return Default();
  auto* wanted = reinterpret_cast<NMTTDISPINFOW*>(l);
  std::wstring tip = ToWide(TipText(itemText_(buttons_[header->idFrom].place.button.command)));
  ::lstrcpynW(wanted->szText, tip.c_str(), static_cast<int>(std::size(wanted->szText)));
  wanted->lpszText = wanted->szText;
  return 0;
}

bool CToolBar::CanAct(const ToolButton& button) const {
  if (IsProjectButton(button) && !projectEnabled_) return false;
  CommandState state;
  return query_(button.command, state) && state.enabled;
}

void CToolBar::UpdateButtons() {
  for (int i = 0; i < static_cast<int>(buttons_.size()); ++i) {
    Button& button = buttons_[static_cast<std::size_t>(i)];
    bool enabled = CanAct(button.place.button);
    if (enabled == button.enabled) continue;
    button.enabled = enabled;
    InvalidateButton(i);
  }
}

void CToolBar::ShowProjectButtons(bool show) {
  if (withProject_ == show) return;
  withProject_ = show;
  if (Exists()) PlaceAll();
}

void CToolBar::EnableProjectButtons(bool enable) {
  projectEnabled_ = enable;
  UpdateButtons();
}

int CToolBar::ButtonAt(POINT point) const {
  for (int i = 0; i < static_cast<int>(buttons_.size()); ++i) {
    RECT area = ButtonRect(i);
    if (::PtInRect(&area, point)) return i;
  }
  return kNone;
}

RECT CToolBar::ButtonRect(int index) const {
  const PlacedButton& place = buttons_[static_cast<std::size_t>(index)].place;
  int top = Scale(kSurround) + place.row * ButtonSize();
  return {place.left, top, place.right, top + ButtonSize()};
}

void CToolBar::InvalidateButton(int index) const {
  if (index == kNone || !Exists()) return;
  RECT area = ButtonRect(index);
  Invalidate(&area, true);
}

void CToolBar::SetHot(int index) {
  if (hot_ == index) return;
  InvalidateButton(hot_);
  hot_ = index;
  InvalidateButton(hot_);
}

void CToolBar::OnButtonDown(UINT, POINT point) {
  int index = ButtonAt(point);
  UpdateButtons();
  if (index == kNone || !buttons_[static_cast<std::size_t>(index)].enabled) return;
  ::SetCapture(Handle());
  pressed_ = hot_ = index;
  InvalidateButton(index);
}

void CToolBar::OnButtonUp(UINT, POINT point) {
  if (pressed_ == kNone) return;
  int released = pressed_;
  ::ReleaseCapture();
  if (ButtonAt(point) != released) return;
  CommandId command = buttons_[static_cast<std::size_t>(released)].place.button.command;
  ::PostMessageW(::GetParent(Handle()), WM_COMMAND, command, 0);
}

void CToolBar::OnMouseMove(UINT, POINT point) {
  TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, Handle(), 0};
  ::TrackMouseEvent(&track);
  SetHot(ButtonAt(point));
}

LRESULT CToolBar::OnMouseLeave(WPARAM, LPARAM) {
  if (pressed_ == kNone) SetHot(kNone);
  return 0;
}

LRESULT CToolBar::OnCaptureChanged(WPARAM, LPARAM) {
  InvalidateButton(pressed_);
  pressed_ = kNone;
  return 0;
}

void CToolBar::OnColorsChanged() {
  images_ = std::make_unique<ToolImages>(dpi_);
  Invalidate(nullptr, true);
}

void CToolBar::OnPaint() {
  PaintDc dc(Handle());
  for (int i = 0; i < static_cast<int>(buttons_.size()); ++i) {
    RECT area = ButtonRect(i);
    if (::RectVisible(dc, &area)) PaintButton(dc, i);
  }
}

// A button that is pressed looks so only while the mouse is over it: there it would be released.
void CToolBar::PaintButton(HDC dc, int index) const {
  const Button& button = buttons_[static_cast<std::size_t>(index)];
  RECT area = ButtonRect(index);
  bool down = pressed_ == index && hot_ == index;
  bool raised = !down && button.enabled && (pressed_ == index || (pressed_ == kNone && hot_ == index));
  if (down) ::DrawEdge(dc, &area, BDR_SUNKENOUTER, BF_RECT);
  if (raised) ::DrawEdge(dc, &area, BDR_RAISEDINNER, BF_RECT);
  int inset = Scale(kMargin) + 1 + (down ? 1 : 0);
  images_->Draw(dc, button.place.button.image, area.left + inset, area.top + inset, button.enabled);
}

}  // namespace tarrow
