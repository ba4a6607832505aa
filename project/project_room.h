// ProjectRoom: the commands of the Project menu, and help on the word at the caret.
#pragma once

#include "edit/documents/document_services.h"
#include "framework/command_target.h"
#include "project/commands/command_runner.h"
#include "project/help/word_help.h"
#include "project/options/project_settings.h"

#include <string>

namespace tarrow {

class ProjectRoom final : public CommandTarget {
 public:
  // All of them outlive the room.
  ProjectRoom(const DocumentServices& program, ProjectSettings& settings, ProjectSwitching& switching);

  // The program has started: files that earlier runs could not remove go away.
  static void CleanUp() { TemporaryFile::RemoveLeftovers(); }

  bool IsRunning() const { return runner_.IsRunning(); }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnSelect();
  void OnConfigure();
  void OnCommand(UINT id);
  CommandState CommandStateOf(UINT id) const;
  LRESULT OnEnded(WPARAM w, LPARAM l);
  LRESULT OnTick(WPARAM w, LPARAM l);
  void OnHelp(UINT id);
  CommandState HelpState(UINT id) const;

  void Compile();
  void Build();
  void BuildTarget();
  void RunDirectly(const std::string& command);
  bool HasFile() const;
  bool OfferToSave() const;
  bool PrepareDirectory(std::string& directory) const;
  CommandSource Source() const;
  void Warn() const { program_.messages.Alert(MB_ICONEXCLAMATION); }

  const DocumentServices& program_;
  ProjectSettings& settings_;
  ProjectSwitching& switching_;
  CommandRunner runner_;
  WordHelp help_;
  std::string buildTarget_;  // the last one
};

}  // namespace tarrow
