#include "shell/frame.h"

#include "edit/documents/file_edit.h"
#include "framework/ctl3d.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/commands/commands.h"
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
    On<WM_DROPFILES, &CTwFrame::OnDropFiles>, On<WM_QUERYENDSESSION, &CTwFrame::OnQueryEndSession>,
    On<WM_ENDSESSION, &CTwFrame::OnEndSession>, On<WM_CLOSE, &CTwFrame::OnClose>,
    On<WM_DESTROY, &CTwFrame::OnDestroy>, OnCommand<kFileNew, &CTwFrame::OnNew>,
    OnCommand<kFileOpen, &CTwFrame::OnOpen>,
    OnCommand<kFileSaveAll, &CTwFrame::OnSaveAll, &CTwFrame::CanSaveAll>,
    OnCommand<kFileClose, &CTwFrame::OnCloseWindow, &CTwFrame::HasWindow>,
    OnCommand<kFileExit, &CTwFrame::OnExit>,
    OnCommandRange<kRecentFileFirst, kRecentFileLast, &CTwFrame::OnRecentFile>,
    OnRegistered<&kFindReplaceMessage, &CTwFrame::OnFindNotification>,
    OnRegistered<&kCommonDialogHelp, &CTwFrame::OnFindHelp>,
    OnCommandRange<kSearchFind, kSearchReplaceNext, &CTwFrame::OnFind, &CTwFrame::FindCommandState>,
    OnCommand<kSetGlobal, &CTwFrame::OnGlobalSettings>,
    OnCommand<kToolSysMetrics, &CTwFrame::OnSystemMetrics>,
    OnCommandRange<kToolDialogEdit, kToolCalculator, &CTwFrame::OnExternalTool>,
    OnCommand<kToolRun, &CTwFrame::OnRun>, OnCommandRange<kToolRecord, kToolMacro, &CTwFrame::OnNothing>,
    OnCommand<kWindowTileVert, &CTwFrame::OnTileAcross, &CTwFrame::HasWindow>,
    OnCommand<kWindowTileHorz, &CTwFrame::OnTileDown, &CTwFrame::HasWindow>,
    OnCommand<kWindowCascade, &CTwFrame::OnCascade, &CTwFrame::HasWindow>,
    OnCommand<kWindowArrange, &CTwFrame::OnArrangeIcons, &CTwFrame::HasWindow>,
    OnCommand<kWindowCloseAll, &CTwFrame::OnCloseAll, &CTwFrame::HasWindow>,
    OnCommand<kWindowSelector, &CTwFrame::OnSelector>, OnCommand<kHelpContents, &CTwFrame::OnHelpContents>,
    OnCommand<kHelpSearch, &CTwFrame::OnHelpSearch>, OnCommand<kHelpContext, &CTwFrame::OnWindowHelp>,
    OnCommand<kHelpAbout, &CTwFrame::OnAbout>>();

CTwFrame::CTwFrame(ProgramState& program)
    : program_(program), find_(*this, [this] { return ActiveText(); }) {}

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
  if (!Settings().Has(kNoToolBar)) CreateToolBar(!Settings().Has(kNoProject));
  if (!Settings().Has(kNoStatusBar)) CreateStatusBar();
  menus_.SetRecentFiles(program_.settings.recentFiles.Names());
  Post(kShowMenuMessage, static_cast<WPARAM>(MenuBar::kNoDocument));
  return true;
}

void CTwFrame::OnSize(UINT kind, int, int) {
  if (kind != SIZE_MINIMIZED) Layout();
}

// The tool bar above, the status bar below, the client window in what remains.
void CTwFrame::Layout() {
  RECT area = ClientRect();
  if (toolBar_.Exists()) {
    int height = toolBar_.Height();
    ::MoveWindow(toolBar_.Handle(), 0, 0, area.right, height, TRUE);
    area.top = height;
  }
  if (statusBar_.Exists()) {
    area.bottom -= statusBar_.Height();
    ::MoveWindow(statusBar_.Handle(), 0, area.bottom, area.right, statusBar_.Height(), TRUE);
  }
  ::MoveWindow(Client(), 0, area.top, area.right, std::max(0L, area.bottom - area.top), TRUE);
}

void CTwFrame::OnActivateApp(bool active) {
  if (active && statusBar_.Exists()) statusBar_.UpdateKeyIndicators();
  Default();
}

void CTwFrame::OnSysColorChange() {
  if (statusBar_.Exists()) statusBar_.Send(WM_SYSCOLORCHANGE);
  if (toolBar_.Exists()) toolBar_.Send(WM_SYSCOLORCHANGE);
  if (const Ctl3dBinding* ctl3d = Ctl3dBinding::Current()) ctl3d->ColorChange();
}

void CTwFrame::OnTimeChange() {
  if (statusBar_.Exists()) statusBar_.RefreshClock();
}

LRESULT CTwFrame::OnShowMenu(WPARAM w, LPARAM) {
  auto bar = static_cast<MenuBar>(w);
  menus_.Show(*this, bar);
  menus_.EnableProject(*this, !Settings().Has(kNoProject));
  if (bar == MenuBar::kNoDocument) EnterProjectDirectory();
  if (toolBar_.Exists()) toolBar_.UpdateButtons();
  return 0;
}

// Without a document, files named without a directory are those of the project.
void CTwFrame::EnterProjectDirectory() {
  const std::string& directory = program_.settings.project.directory;
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
  ShowStatus(closed ? std::string() : LoadText(MenuPrompt(item, flags, menu)), 0);
}

void CTwFrame::OnInitMenuPopup(HMENU menu, UINT, bool isSystemMenu) {
  Default();
  if (isSystemMenu) return;
  MenuBars::Update(menu, [this](UINT id, CommandState& state) { return QueryCommand(id, state); });
}

TextControl* CTwFrame::ActiveText() const {
  auto* edit = dynamic_cast<CTwFileEdit*>(ActiveChild());
  return edit ? &edit->Control() : nullptr;
}

LRESULT CTwFrame::OnFindNotification(WPARAM, LPARAM l) {
  find_.OnNotification(l);
  return 0;
}

LRESULT CTwFrame::OnFindHelp(WPARAM, LPARAM) {
  find_.OnHelp();
  return 0;
}

bool CTwFrame::QueryCloseAll() {
  return ForEachChild([](CMDIChildWnd& child) { return child.Send(WM_QUERYENDSESSION) != 0; });
}

bool CTwFrame::OnQueryEndSession() {
  return QueryCloseAll();
}

// A logout sends no WM_CLOSE: what is to be kept is written here.
void CTwFrame::OnEndSession(bool ending) {
  if (ending) SaveProgramState();
}

void CTwFrame::OnClose() {
  if (!QueryCloseAll()) return;
  selector_.Destroy();
  find_.CloseDialog();
  SaveProgramState();
  statusBar_.Destroy();
  toolBar_.Destroy();
  Settings().Set(kNoStatusBar, true);  // nothing is to be shown in them any more
  Settings().Set(kNoToolBar, true);
  ::WinHelpW(Handle(), ToWide(program_.helpFile).c_str(), HELP_QUIT, 0);
  Destroy();
}

void CTwFrame::OnDestroy() {
  menus_.ReleaseInstalled();
  ::PostQuitMessage(0);
}

}  // namespace tarrow
