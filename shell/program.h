// Program: everything that the program is made of, put together.
//
// Here, and only here, it is decided who knows whom. A command goes to the active document window, then to
// the rooms, then to the program's own objects below, in the order of the lines in program.cpp.
#pragma once

#include "shell/active_keys.h"
#include "shell/document_windows.h"
#include "shell/ending.h"
#include "shell/environment_options.h"
#include "shell/frame.h"
#include "shell/frame_wait.h"
#include "shell/help_commands.h"
#include "shell/message_boxes.h"
#include "shell/open_files.h"
#include "shell/program_state.h"
#include "shell/rooms.h"
#include "shell/session_keeper.h"
#include "shell/settings_commands.h"
#include "shell/tool_commands.h"

namespace tarrow {

struct Program {
  // `files` outlives the program. Nothing is read or shown yet.
  explicit Program(SettingsFiles& files);

  ProgramState state;
  CTwFrame frame;
  MessageBoxes messages;
  CWinSelector selector;
  FrameWait wait;
  EnvironmentOptions options;
  HelpCommands help;
  DocumentServices services;
  OpenFiles files;
  DocumentWindows windows;
  ActiveKeys keys;
  SettingsCommands settings;
  SessionKeeper session;
  ToolCommands tools;
  Ending ending;
  Rooms rooms;
};

}  // namespace tarrow
