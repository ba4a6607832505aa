// CTwApp: the program from its first step to its last.
//
// It reads the command line, finds the program's files, loads the settings, shows the frame, opens what was
// named or what was open last, and runs the message loop.
#pragma once

#include "framework/com_ptr.h"
#include "framework/ctl3d.h"
#include "framework/dialog_placement.h"
#include "framework/message_loop.h"
#include "shell/program.h"
#include "shell/state/command_line.h"
#include "shell/state/settings_files.h"

#include <string_view>

namespace tarrow {

class CTwApp {
 public:
  CTwApp();

  // Runs with a command line (without the name of the program) and the show command that the system gave;
  // returns the exit code.
  int Run(std::string_view commandLine, int showCommand);

 private:
  void FindPlaces(const CommandLineOptions& options);
  void LoadProgramSettings(const CommandLineOptions& options);
  void ShowFrame(int showCommand);
  bool PlaceFrame();
  void ReportNoFiles(const CommandLineOptions& options);
  std::size_t OpenNamedFiles(const CommandLineOptions& options);
  int PrintNamedFiles(const CommandLineOptions& options);
  bool PrintFile(const std::string& path);
  MessageLoop::Targets LoopTargets() const;

  ComApartment com_;
  Ctl3dBinding ctl3d_;
  DialogPlacement dialogs_;
  DiskSettingsFiles files_;
  Program program_;
};

}  // namespace tarrow
