#include "shell/frame/frame.h"

#include "framework/ctl3d.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/commands/commands.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

// Byte-aligned drawing of the client area is what the frame has always asked for; today's systems ignore it.
// The brush shows where the client window is hidden.
const WindowClass kFrameClass{L"TarrowFrame", CS_DBLCLKS | CS_BYTEALIGNCLIENT, 32512,
                              reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1), IDI_TARROW};

}  // namespace

constinit const MessageMap CTwFrame::kMessageMap = MessageMap::Make<
    &CMDIFrameWnd::kMessageMap, On<WM_CREATE, &CTwFrame::OnCreate>, On<WM_SIZE, &CTwFrame::OnSize>,
    On<WM_ACTIVATEAPP, &CTwFrame::OnActivateApp>, On<WM_SYSCOLORCHANGE, &CTwFrame::OnSysColorChange>,
    On<WM_TIMECHANGE, &CTwFrame::OnTimeChange>, On<kShowMenuMessage, &CTwFrame::OnShowMenu>,
    On<WM_MENUSELECT, &CTwFrame::OnMenuSelect>, On<WM_INITMENUPOPUP, &CTwFrame::OnInitMenuPopup>,
    On<WM_DESTROY, &CTwFrame::OnDestroy>>();

CTwFrame::CTwFrame(ProgramState& state, Messages& messages)
    : state_(state), bars_(*this, menus_, state.settings.global, messages) {}

bool CTwFrame::CreateMain(const RECT& bounds) {
  WindowSpec spec;
  spec.title = ToWide(LoadText(kTextTitle));
  spec.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  spec.bounds = bounds;
  spec.menuOrId = menus_.Installed();
  return CreateFrame(kFrameClass, spec);
}

bool CTwFrame::OnCreate(const CREATESTRUCTW&) {
  if (!CreateClient(nullptr)) return false;
  bars_.Create();
  // So that Paste follows the clipboard, without being asked over and over.
  ::AddClipboardFormatListener(Handle());
  Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kNoDocument));
  return true;
}

void CTwFrame::OnSize(UINT kind, int, int) {
  if (kind != SIZE_MINIMIZED) Layout();
}

// The client window takes what the bars leave.
void CTwFrame::Layout() {
  RECT area = bars_.Layout(ClientRect());
  ::MoveWindow(Client(), 0, area.top, area.right, area.bottom - area.top, TRUE);
}

void CTwFrame::ApplyEffect(SettingsEffect effect, bool projectButtons) {
  bars_.Apply(effect, projectButtons);
  if (effect == SettingsEffect::kUpdateProjectMenu) menus_.EnableProject(*this, HasProject());
  Layout();
}

void CTwFrame::OnActivateApp(bool active) {
  if (active) {
    bars_.OnActivate();
    Post(kInFrontMessage);
  }
  Default();
}

void CTwFrame::OnSysColorChange() {
  bars_.OnSysColorChange();
  ForEachChild([](CMDIChildWnd& child) {
    child.Send(WM_SYSCOLORCHANGE);
    return true;
  });
  if (const Ctl3dBinding* ctl3d = Ctl3dBinding::Current()) ctl3d->ColorChange();
}

LRESULT CTwFrame::OnShowMenu(WPARAM w, LPARAM) {
  auto bar = static_cast<MenuBar>(w);
  menus_.Show(*this, bar);
  menus_.EnableProject(*this, HasProject());
  if (bar == MenuBar::kNoDocument) EnterProjectDirectory();
  bars_.UpdateButtons();
  return 0;
}

// Without a document, files named without a directory are those of the project.
void CTwFrame::EnterProjectDirectory() {
  const std::string& directory = state_.settings.project.directory;
  if (directory.empty()) return;
  try {
    ChangeWorkingDirectory(directory);
  } catch (const CFileException&) {
    // The directory has gone; the current one stays.
  }
}

// Which string describes a menu item that is highlighted; 0: none.
int CTwFrame::MenuPrompt(UINT item, UINT flags, HMENU menu) const {
  if (flags & MF_POPUP) return (flags & MF_SYSMENU) ? kTextSystemMenuPrompt : 0;
  if (flags & MF_SYSMENU) return kTextSystemMenuPrompt;
  if (item == 0 || (flags & MF_SEPARATOR)) return 0;
  if (item >= kFirstWindowId && menu) return kTextWindowPrompt;
  if (item >= kRecentFileFirst && item <= kRecentFileLast) return kTextRecentFilePrompt;
  return static_cast<int>(item);
}

void CTwFrame::OnMenuSelect(UINT item, UINT flags, HMENU menu) {
  bool closed = flags == 0xFFFF && !menu;
  bars_.ShowStatus(closed ? std::string() : LoadText(MenuPrompt(item, flags, menu)), 0);
}

void CTwFrame::OnInitMenuPopup(HMENU menu, UINT, bool isSystemMenu) {
  Default();
  if (isSystemMenu) return;
  MenuBars::MarkUnsaved(*this, menu);
  MenuBars::Update(menu, [this](UINT id, CommandState& state) { return QueryCommand(id, state); });
}

void CTwFrame::OnDestroy() {
  ::RemoveClipboardFormatListener(Handle());
  menus_.ReleaseInstalled();
  ::PostQuitMessage(0);
}

}  // namespace tarrow
