// Bars: the tool bar and the status bar of the frame, as the settings want them.
//
// Either may be missing; whoever shows something in the status bar need not know whether it is there.
#pragma once

#include "framework/mdi.h"
#include "shell/frame/menu_bars.h"
#include "ui/bars/status_bar.h"
#include "ui/bars/tool_bar.h"
#include "ui/program/messages.h"
#include "ui/program/status_line.h"
#include "ui/settings/global_settings_form.h"

namespace tarrow {

class Bars final : public StatusLine {
 public:
  // All outlive the object.
  Bars(CMDIFrameWnd& frame, const MenuBars& menus, GlobalSettings& settings, Messages& messages)
      : frame_(frame), menus_(menus), settings_(settings), messages_(messages) {}

  // Creates the bars that the settings do not rule out.
  void Create();

  // Places the bars at the edges of `area` (pixels in the frame) and returns what remains of it.
  RECT Layout(RECT area);

  // Does what a change of the settings calls for, if it concerns a bar. `projectButtons`: whether a tool bar
  // that is made anew shows them.
  void Apply(SettingsEffect effect, bool projectButtons);

  // The buttons follow what can be done now.
  void UpdateButtons();

  // Project buttons act only while a project is open, and like all others only while their commands do.
  void EnableProjectButtons(bool enable);

  // No document is active any more: the status bar shows its idle text.
  void ShowIdle();

  void OnActivate();
  void OnSysColorChange();
  void OnTimeChange();

  // Destroys the bars for good, and says so in the settings: nothing is to be shown in them any more.
  void Destroy();

  // StatusLine:
  void ShowStatus(std::string_view text, int seconds) override;
  void ShowStatusId(int id, int seconds) override;
  void PublishCaret(int line, int column) override;
  void PublishIndicator(Indicator indicator, int state) override;
  void PublishTask(std::string_view text) override;

 private:
  void CreateToolBar(bool withProject);
  void CreateStatusBar();

  CMDIFrameWnd& frame_;
  const MenuBars& menus_;
  GlobalSettings& settings_;
  Messages& messages_;
  CStatusBar status_;
  CToolBar tools_;
  bool projectEnabled_ = false;
};

}  // namespace tarrow
