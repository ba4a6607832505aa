// CTwFrame: the main window, with its menus, its bars and what lies between them.
//
// It knows no command of its own: those belong to the active window and to the targets that the program adds
// (shell/program.h).
#pragma once

#include "framework/mdi.h"
#include "shell/frame/bars.h"
#include "shell/frame/menu_bars.h"
#include "shell/state/program_state.h"

namespace tarrow {

class CTwFrame final : public CMDIFrameWnd {
 public:
  // Both outlive the frame.
  CTwFrame(ProgramState& state, Messages& messages);

  // Creates the window at `bounds` (left, top, width, height in screen pixels).
  [[nodiscard]] bool CreateMain(const RECT& bounds);

  Bars& GetBars() { return bars_; }
  MenuBars& Menus() { return menus_; }

  // Does what a change of the settings calls for. `projectButtons` as in Bars::Apply.
  void ApplyEffect(SettingsEffect effect, bool projectButtons);

  // The queue of messages is empty: what follows the state of the windows is brought up to date.
  void OnIdle() { bars_.UpdateButtons(); }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnActivateApp(bool active);
  void OnSysColorChange();
  void OnTimeChange() { bars_.OnTimeChange(); }
  LRESULT OnShowMenu(WPARAM w, LPARAM l);
  void OnMenuSelect(UINT item, UINT flags, HMENU menu);
  void OnInitMenuPopup(HMENU menu, UINT index, bool isSystemMenu);
  void OnDestroy();

  bool HasProject() const { return !state_.settings.global.Has(kNoProject); }
  void Layout();
  void EnterProjectDirectory();
  int MenuPrompt(UINT item, UINT flags, HMENU menu) const;

  ProgramState& state_;
  MenuBars menus_;
  Bars bars_;
};

}  // namespace tarrow
