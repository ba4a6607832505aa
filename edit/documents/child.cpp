#include "edit/documents/child.h"

#include "base/path_text.h"
#include "framework/directories.h"
#include "framework/font_dialog.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <utility>

namespace tarrow {

constinit const MessageMap CTwChild::kMessageMap = MessageMap::Make<
    &CMDIChildWnd::kMessageMap, On<WM_CREATE, &CTwChild::OnCreate>, On<WM_DESTROY, &CTwChild::OnDestroy>,
    On<WM_CLOSE, &CTwChild::OnClose>, On<WM_QUERYENDSESSION, &CTwChild::OnQueryEndSession>,
    On<WM_SETFOCUS, &CTwChild::OnSetFocus>, On<WM_SIZE, &CTwChild::OnSize>,
    On<WM_MDIACTIVATE, &CTwChild::OnMdiActivate>, On<WM_SYSCOMMAND, &CTwChild::OnSysCommand>,
    On<WM_RBUTTONDOWN, &CTwChild::OnRButtonDown>, On<WM_CONTEXTMENU, &CTwChild::OnContextMenu>,
    OnCommand<kSetShowHScroll, &CTwChild::OnToggleHorizontalScroll, &CTwChild::HorizontalScrollState>,
    OnCommand<kSetShowVScroll, &CTwChild::OnToggleVerticalScroll, &CTwChild::VerticalScrollState>,
    OnCommand<kSetFont, &CTwChild::OnFontCommand>>();

CTwChild::CTwChild(const DocumentServices& program, std::uint32_t flags)
    : program_(program),
      flags_((flags & kSessionFlags) | kUntitled),
      directory_(WorkingDirectory()),
      fontChoice_(program.screenFont),
      font_(::CreateFontIndirectW(&fontChoice_)) {}

bool CTwChild::QuerySave(int) {
  return true;
}

void CTwChild::PublishState() {
  program_.status.PublishIndicator(Indicator::kInsertMode, InsertModeState(flags_));
  program_.status.PublishIndicator(Indicator::kEditMode, EditModeState(flags_));
  program_.status.PublishIndicator(Indicator::kModification, ModificationState(flags_));
  program_.status.PublishIndicator(Indicator::kIndentation, IndentationState(flags_));
}

std::string CTwChild::ListText() const {
  const char* mark = IsUnsaved() ? " *" : "";
  if (Has(kUntitled)) return path_ + mark;
  std::string text(FileNamePart(path_));
  return text.append(mark).append("   ").append(WithoutTrailingSeparators(DirectoryPart(path_)));
}

void CTwChild::SetPath(std::string path) {
  path_ = std::move(path);
  if (auto slash = path_.rfind('\\'); slash != std::string::npos) {
    bool root = slash > 0 && path_[slash - 1] == ':';
    directory_ = path_.substr(0, root ? slash + 1 : slash);
  }
  SetFlag(kUntitled, false);
  ShowNewTitle();
}

void CTwChild::SetUntitled(std::string title) {
  path_ = std::move(title);
  SetFlag(kUntitled, true);
  ShowNewTitle();
}

void CTwChild::ShowNewTitle() {
  if (!Exists()) return;
  OnPathChanged();
  ShowTitle(::IsIconic(Handle()));
  program_.events.ChildRetitled(*this);
}

void CTwChild::SetFont(const LOGFONTW& font) {
  FontHandle created(::CreateFontIndirectW(&font));
  if (!created) return;
  fontChoice_ = font;
  std::swap(font_, created);
  OnFontChanged();  // the old font goes only once nothing uses it
}

bool CTwChild::OnCreate(const CREATESTRUCTW&) {
  program_.events.ChildOpened(*this);
  return true;
}

void CTwChild::OnDestroy() {
  program_.events.ChildClosed(*this);
}

void CTwChild::OnClose() {
  if (QuerySave(kTextSaveBeforeClosing))
    ::SendMessageW(Frame().Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(Handle()), 0);
}

bool CTwChild::OnQueryEndSession() {
  return QuerySave(kTextSaveBeforeClosing);
}

void CTwChild::OnSetFocus(HWND) {
  EnterDirectory();
  PublishState();
}

// Files that a user names without a directory are those beside the file in front.
void CTwChild::EnterDirectory() {
  if (directory_ == WorkingDirectory()) return;
  try {
    ChangeWorkingDirectory(directory_);
  } catch (const CFileException&) {
    return;  // the directory has gone: the current one stays, the document is as it was
  }
}

void CTwChild::OnSize(UINT kind, int, int) {
  if (Has(kTextWindow) && !Has(kUntitled)) ShowTitle(kind == SIZE_MINIMIZED);
}

// Setting the title of a maximised window draws the frame anew, so it is set only when it changes.
void CTwChild::ShowTitle(bool minimised) {
  std::string title = minimised ? MinimisedTitle(path_) : path_;
  if (title != Text()) SetText(title);
}

void CTwChild::OnMdiActivate(HWND deactivated, HWND activated) {
  if (activated == Handle()) {
    program_.events.ChildActivated(*this, deactivated == nullptr);
    if (::IsIconic(Handle())) PublishState();  // it does not get the focus
  } else
    program_.events.ChildDeactivated(*this, activated == nullptr);
}

// The user's own maximising and restoring is how new windows are to come, too.
void CTwChild::OnSysCommand(UINT command) {
  if (command == SC_MAXIMIZE)
    program_.settings.arrange = ArrangeMode::kMaximised;
  else if (command == SC_RESTORE && ::IsZoomed(Handle()))
    program_.settings.arrange = ArrangeMode::kCascade;
}

void CTwChild::OnRButtonDown(UINT, POINT client) {
  ::SendMessageW(Frame().Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(Handle()), 0);
  ::ClientToScreen(Handle(), &client);
  program_.events.ShowPopupMenu(client);
}

// The keyboard's menu key; the mouse has had its menu at the press.
LRESULT CTwChild::OnContextMenu(WPARAM, LPARAM l) {
  POINT corner{0, 0};
  if (l == -1) OnRButtonDown(0, corner);
  return 0;
}

void CTwChild::OnToggleHorizontalScroll() {
  ShowHorizontalScroll(!Has(kHorizontalScroll));
}
void CTwChild::OnToggleVerticalScroll() {
  ShowVerticalScroll(!Has(kVerticalScroll));
}

void CTwChild::ShowHorizontalScroll(bool show) {
  SetFlag(kHorizontalScroll, show);
  ::ShowScrollBar(ScrollBarOwner(), SB_HORZ, show);
}

void CTwChild::ShowVerticalScroll(bool show) {
  SetFlag(kVerticalScroll, show);
  ::ShowScrollBar(ScrollBarOwner(), SB_VERT, show);
}

void CTwChild::OnFontCommand() {
  LOGFONTW font = fontChoice_;
  if (RunFontDialog({Frame().Handle()}, font)) SetFont(font);
}

CTwChild* FindChildShowing(const CMDIFrameWnd& frame, std::string_view path) {
  CTwChild* found = nullptr;
  frame.ForEachChild([&](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    if (child && !child->Has(kUntitled) && child->Path() == path) found = child;
    return found == nullptr;
  });
  return found;
}

std::string MinimisedTitle(std::string path) {
  auto slash = path.rfind('\\');
  if (slash != std::string::npos && slash > 0 && path[slash - 1] != ':') path[slash] = ' ';
  return path;
}

}  // namespace tarrow
