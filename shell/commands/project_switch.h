// ProjectSwitch: opens a project and leaves it, with everything that depends on the settings.
//
// The old project's session and settings are saved and its windows closed at once; the new settings are read
// when the message that is posted then arrives, after everything that the closing of the windows has posted.
#pragma once

#include "framework/command_target.h"
#include "project/options/project_settings.h"
#include "shell/commands/active_keys.h"
#include "shell/commands/document_windows.h"
#include "shell/commands/open_files.h"
#include "shell/commands/session_keeper.h"
#include "shell/frame/frame.h"
#include "shell/state/program_state.h"

#include <string>

namespace tarrow {

class ProjectSwitch final : public CommandTarget, public ProjectSwitching {
 public:
  // All of them outlive the object.
  ProjectSwitch(CTwFrame& frame, ProgramState& state, DocumentWindows& windows, ActiveKeys& keys,
                OpenFiles& files, SessionKeeper& session)
      : frame_(frame), state_(state), windows_(windows), keys_(keys), files_(files), session_(session) {}

  bool ChangeProject(const std::string& directory) override;

  // What shows whether a project is open follows the settings.
  void ShowState();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  LRESULT OnReload(WPARAM w, LPARAM l);
  void Load();
  void EnterGlobalDirectory() const;

  CTwFrame& frame_;
  ProgramState& state_;
  DocumentWindows& windows_;
  ActiveKeys& keys_;
  OpenFiles& files_;
  SessionKeeper& session_;
  std::string next_;  // the directory of the project to open
};

}  // namespace tarrow
