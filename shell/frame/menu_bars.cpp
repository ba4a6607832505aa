#include "shell/frame/menu_bars.h"

#include "base/path_text.h"
#include "framework/unicode.h"
#include "ui/commands/menus.h"

namespace tarrow {
namespace {

// The separator between the recent files and Exit: numbered, so that it can be found again.
constexpr UINT kRecentSeparator = kRecentFileLast + 1;

constexpr std::string_view kUnsavedMark = " *";

void AppendItem(HMENU menu, CommandId id, std::string_view text) {
  if (id == kMenuSeparator)
    ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  else
    ::AppendMenuW(menu, MF_STRING, id, ToWide(text).c_str());
}

// The recent files are left out, with the separator behind them: SetRecentFiles adds them.
void AppendItems(HMENU menu, std::span<const CommandId> items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i] == kRecentFileFirst)
      ++i;
    else
      AppendItem(menu, items[i], CommandMenuText(items[i]));
  }
}

MenuHandle BuildBar(std::span<const MenuPopup> popups) {
  MenuHandle bar(::CreateMenu());
  for (const MenuPopup& popup : popups) {
    HMENU menu = ::CreatePopupMenu();
    AppendItems(menu, popup.items);
    ::AppendMenuW(bar.Get(), MF_POPUP, reinterpret_cast<UINT_PTR>(menu), ToWide(popup.title).c_str());
  }
  return bar;
}

std::string TextOf(HMENU menu, UINT command) {
  wchar_t text[kMaxPath + 40];
  int length = ::GetMenuStringW(menu, command, text, static_cast<int>(std::size(text)), MF_BYCOMMAND);
  return ToUtf8({text, static_cast<std::size_t>(length)});
}

}  // namespace

MenuBars::MenuBars() : noDocument_(BuildBar(NoDocumentMenu())), edit_(BuildBar(EditMenu())) {}

bool MenuBars::Show(const CMDIFrameWnd& frame, MenuBar bar) {
  if (bar == current_ && ::GetMenu(frame.Handle()) == Bar(bar)) return false;
  current_ = bar;
  int list = bar == MenuBar::kEdit ? kEditWindowPopup : kNoDocumentToolsPopup;
  ::SendMessageW(frame.Client(), WM_MDISETMENU, reinterpret_cast<WPARAM>(Bar(bar)),
                 reinterpret_cast<LPARAM>(::GetSubMenu(Bar(bar), list)));
  // Windows that were open before are listed in the new popup only when asked for.
  ::SendMessageW(frame.Client(), WM_MDIREFRESHMENU, 0, 0);
  return true;
}

// The system menu of a maximised child takes the first place of the bar.
void MenuBars::EnableProject(const CMDIFrameWnd& frame, bool enable) const {
  UINT place = current_ == MenuBar::kEdit ? kEditProjectPopup : kNoDocumentProjectPopup;
  if (frame.ActiveChild() && frame.ActiveChildIsMaximised()) ++place;
  UINT state = enable ? MF_ENABLED : MF_GRAYED;
  auto before = static_cast<UINT>(::EnableMenuItem(Installed(), place, MF_BYPOSITION | state));
  if (before != state) ::DrawMenuBar(frame.Handle());
}

std::string MenuBars::ItemText(UINT command) const {
  return TextOf(edit_.Get(), command);
}

void MenuBars::ResetKeyTexts() const {
  for (const CommandName& command : CommandNames()) {
    std::string_view text = CommandMenuText(command.id);
    std::size_t tab = text.find('\t');
    if (!text.empty()) SetKeyText(command.id, tab == text.npos ? std::string_view() : text.substr(tab));
  }
}

void MenuBars::SetKeyText(UINT command, std::string_view keyText) const {
  for (HMENU bar : {noDocument_.Get(), edit_.Get()}) {
    std::string text = TextOf(bar, command);
    if (text.empty()) continue;
    ::ModifyMenuW(bar, command, MF_BYCOMMAND | MF_STRING, command,
                  ToWide(WithKeyText(text, keyText)).c_str());
  }
}

void MenuBars::SetRecentFiles(const std::vector<std::string>& paths) const {
  for (HMENU bar : {noDocument_.Get(), edit_.Get()}) {
    UINT last = kRecentFileFirst;
    for (UINT id = kRecentFileFirst; id <= kRecentSeparator; ++id) ::DeleteMenu(bar, id, MF_BYCOMMAND);
    for (std::size_t i = 0; i < paths.size() && last <= kRecentFileLast; ++i) {
      std::wstring text = ToWide(RecentFileText(static_cast<int>(i) + 1, paths[i]));
      ::InsertMenuW(bar, kFileExit, MF_BYCOMMAND | MF_STRING, last++, text.c_str());
    }
    if (!paths.empty()) ::InsertMenuW(bar, kFileExit, MF_BYCOMMAND | MF_SEPARATOR, kRecentSeparator, nullptr);
  }
}

HMENU MenuBars::Popup() {
  if (!popup_) {
    popup_.Reset(::CreatePopupMenu());
    for (CommandId id : ContextMenu()) AppendItem(popup_.Get(), id, WithKeyText(CommandMenuText(id), ""));
  }
  return popup_.Get();
}

void MenuBars::Update(HMENU popup, const std::function<bool(UINT id, CommandState& state)>& query) {
  int count = ::GetMenuItemCount(popup);
  for (int i = 0; i < count; ++i) {
    UINT id = ::GetMenuItemID(popup, i);
    if (id == 0 || id == static_cast<UINT>(-1) || id >= CMDIFrameWnd::kFirstWindowId) continue;
    CommandState state;
    bool known = query(id, state);
    auto place = static_cast<UINT>(i);
    ::EnableMenuItem(popup, place, MF_BYPOSITION | (known && state.enabled ? MF_ENABLED : MF_GRAYED));
    ::CheckMenuItem(popup, place, MF_BYPOSITION | (known && state.checked ? MF_CHECKED : MF_UNCHECKED));
  }
}

// The client window writes the list from the titles, anew whenever they change; an item that stands for no
// single window ("More Windows") does not hold the title of the window whose number it has.
void MenuBars::MarkUnsaved(const CMDIFrameWnd& frame, HMENU popup) {
  frame.ForEachChild([&](CMDIChildWnd& child) {
    auto id = static_cast<UINT>(::GetDlgCtrlID(child.Handle()));
    std::string text = TextOf(popup, id), title = child.Text();
    bool isMarked = text.ends_with(title + std::string(kUnsavedMark));
    if (isMarked == child.IsUnsaved() || !(isMarked || text.ends_with(title))) return true;
    if (isMarked)
      text.resize(text.size() - kUnsavedMark.size());
    else
      text += kUnsavedMark;
    std::wstring wide = ToWide(text);
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STRING;
    item.dwTypeData = wide.data();
    ::SetMenuItemInfoW(popup, id, FALSE, &item);
    return true;
  });
}

void MenuBars::ReleaseInstalled() {
  MenuHandle& installed = current_ == MenuBar::kEdit ? edit_ : noDocument_;
  (void)installed.Release();
}

}  // namespace tarrow
