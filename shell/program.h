// Program: everything that the program is made of, put together.
//
// Here, and only here, it is decided who knows whom. A command goes to the active document window, then to
// the rooms, then to the program's own objects below, in the order of the lines in program.cpp.
#pragma once

#include "shell/commands/active_keys.h"
#include "shell/commands/changed_files.h"
#include "shell/commands/document_windows.h"
#include "shell/commands/ending.h"
#include "shell/commands/help_commands.h"
#include "shell/commands/open_files.h"
#include "shell/commands/project_switch.h"
#include "shell/commands/session_keeper.h"
#include "shell/commands/settings_commands.h"
#include "shell/commands/tool_commands.h"
#include "shell/frame/frame.h"
#include "shell/frame/frame_wait.h"
#include "shell/frame/message_boxes.h"
#include "shell/rooms.h"
#include "shell/state/program_state.h"
#include "shell/state/project_store.h"
#include "shell/state/settings_values.h"

namespace tarrow {

struct Program {
  // `files` outlives the program. Nothing is read or shown yet.
  explicit Program(SettingsFiles& files);

  ProgramState state;
  CTwFrame frame;
  MessageBoxes messages;
  CWinSelector selector;
  FrameWait wait;
  ProjectStore options;
  HelpCommands help;
  DocumentServices services;
  OpenFiles files;
  DocumentWindows windows;
  ActiveKeys keys;
  SettingsValues stored;
  SettingsCommands settings;
  SessionKeeper session;
  ProjectSwitch projects;
  ToolCommands tools;
  ChangedFiles changedFiles;
  Ending ending;
  Rooms rooms;
};

}  // namespace tarrow
