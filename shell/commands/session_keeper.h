// SessionKeeper: the windows of the last run brought back, and those of this run and its settings kept.
#pragma once

#include "shell/commands/document_windows.h"
#include "shell/commands/open_files.h"
#include "shell/state/program_state.h"

namespace tarrow {

class SessionKeeper {
 public:
  // All of them outlive the object.
  SessionKeeper(ProgramState& state, const DocumentServices& services, OpenFiles& files,
                DocumentWindows& windows)
      : state_(state), services_(services), files_(files), windows_(windows) {}

  // Reopens the windows of the last session, stacked and laid out as they were.
  void Restore();

  // Writes the session, if it is to be kept, and the settings. The user is told when that fails.
  void Save();

 private:
  void KeepWindows();

  ProgramState& state_;
  const DocumentServices& services_;
  OpenFiles& files_;
  DocumentWindows& windows_;
};

}  // namespace tarrow
