// CTwFrame: the main window, and what the rooms may ask of the program.
//
// The frame owns the menus, the bars and the window selector, opens files into windows, arranges and closes
// them, and handles the commands that no document window takes. It is the Host of every room. Its work is
// spread over several sources by subject: frame_host.cpp (what rooms ask), frame_files.cpp,
// frame_windows.cpp, frame_session.cpp,
// frame_settings.cpp, frame_tools.cpp.
#pragma once

#include "framework/mdi.h"
#include "search/find/find_commands.h"
#include "shell/menu_bars.h"
#include "shell/program_state.h"
#include "ui/bars/status_bar.h"
#include "ui/bars/tool_bar.h"
#include "ui/commands/key_bindings.h"
#include "ui/program/host.h"
#include "ui/selector/window_selector.h"
#include "ui/settings/global_settings_form.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class CTwFrame final : public CMDIFrameWnd, public Host {
 public:
  // `program` outlives the frame.
  explicit CTwFrame(ProgramState& program);

  // Creates the window at `bounds` (left, top, width, height in screen pixels).
  [[nodiscard]] bool CreateMain(const RECT& bounds);

  // The command that a key with these modifiers (FSHIFT, FCONTROL, FALT) runs now, 0 for none.
  UINT CommandOfKey(UINT key, BYTE modifiers) const;

  // Takes the keys of commands from the defaults and the user's bindings, and shows them in the menus.
  void LoadKeyBindings();

  // Opens a file with the bits of a document window. Returns whether a window shows it now.
  bool OpenFileWithFlags(std::string_view path, std::uint32_t flags);

  // Lays all windows out as the settings say.
  void ArrangeWindows(bool maximise);

  // The queue of messages is empty: what follows the state of the windows is brought up to date.
  void OnIdle();

  // Reopens the windows of the last session.
  void RestoreSession();

  // Host:
  int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) override;
  void Alert(UINT sound, const CMDIChildWnd* window) override;
  void ShowFileError(HWND owner, const CFileException& error) override;
  void ReportOutOfMemory() override;
  void ShowStatus(std::string_view text, int seconds) override;
  void ShowStatusId(int id, int seconds) override;
  void PublishCaret(int line, int column) override;
  void PublishIndicator(Indicator indicator, int state) override;
  void BeginWait(bool hideWindows) override;
  void EndWait() override;
  bool OpenFile(std::string_view path, bool readOnly, bool hexView) override;
  void AddRecentFile(std::string_view path) override;
  void ChildOpened(CMDIChildWnd& child) override;
  void ChildActivated(CMDIChildWnd& child, bool first) override;
  void ChildDeactivated(CMDIChildWnd& child, bool last) override;
  void ChildClosed(CMDIChildWnd& child) override;
  void ChildRetitled(CMDIChildWnd& child) override;
  void DirectoryChanged() override {}
  void ShowPopupMenu(POINT screen) override;
  std::string FileFilter() const override;
  LOGFONTW ScreenFont() const override;
  void ShowHelp(HWND owner, unsigned context) override;
  GlobalSettings& Settings() override { return program_.settings.global; }
  CMDIFrameWnd& Frame() override { return *this; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  // frame.cpp: the window itself.
  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnActivateApp(bool active);
  void OnSysColorChange();
  void OnTimeChange();
  LRESULT OnShowMenu(WPARAM w, LPARAM l);
  void OnMenuSelect(UINT item, UINT flags, HMENU menu);
  void OnInitMenuPopup(HMENU menu, UINT index, bool isSystemMenu);
  void OnFind(UINT id) { find_.Run(id); }
  CommandState FindCommandState(UINT id) const { return find_.State(id); }
  LRESULT OnFindNotification(WPARAM w, LPARAM l);
  LRESULT OnFindHelp(WPARAM w, LPARAM l);
  TextControl* ActiveText() const;
  bool OnQueryEndSession();
  void OnEndSession(bool ending);
  void OnClose();
  void OnDestroy();
  void OnExit() { Post(WM_CLOSE); }
  void Layout();
  void EnterProjectDirectory();
  bool QueryCloseAll();
  int MenuPrompt(UINT item, UINT flags, HMENU menu) const;

  // frame_host.cpp
  void ShowWindows();

  // frame_files.cpp
  void OnNew();
  void OnOpen();
  void OnSaveAll();
  bool CanSaveAll() const;
  void OnRecentFile(UINT id);
  void OnDropFiles(HANDLE drop);
  bool CreateNewFile(const std::string& path, bool readOnly);

  // frame_windows.cpp
  void OnCloseWindow();
  void OnTileAcross();
  void OnTileDown();
  void OnCascade();
  void OnArrangeIcons();
  void OnCloseAll();
  void OnSelector();
  bool HasWindow() const { return ActiveChild() != nullptr; }

  // frame_session.cpp
  void SaveProgramState();

  // frame_settings.cpp
  void OnGlobalSettings();
  void CreateToolBar(bool withProject);
  void CreateStatusBar();

  void ApplyEffect(SettingsEffect effect, const GlobalSettings& before);
  void SetScreenFont(const LOGFONTW& font);
  void ApplyToWindows(bool withFont);
  void ApplyKeyBindings(KeyBindingTable& keys);
  LOGFONTW PrinterFont() const;

  // frame_tools.cpp
  void OnExternalTool(UINT id);
  void OnNothing() {}
  void OnHelpContents();
  void OnHelpSearch();
  void OnWindowHelp();
  void OnAbout();
  void OnSystemMetrics();
  void OnRun();

  ProgramState& program_;
  MenuBars menus_;
  CStatusBar statusBar_;
  CToolBar toolBar_;
  CWinSelector selector_;
  FindCommands find_;
  std::vector<KeyBinding> keys_;  // those that run commands now
  HCURSOR cursorBeforeWait_ = nullptr;
  std::vector<bool> waits_;  // of each wait that has begun: whether it hides the windows
  int hidingWaits_ = 0;
};

}  // namespace tarrow
