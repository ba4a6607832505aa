// CommandRunner: runs the build commands of the project, one at a time, and shows what they wrote.
//
// It keeps the output file of the last command, from its start until the next one begins, its output has been
// shown, or it has succeeded without a word. The commands themselves are made elsewhere
// (project/commands/command_lines.h).
#pragma once

#include "edit/documents/document_services.h"
#include "project/commands/command_lines.h"
#include "project/commands/running_command.h"
#include "project/commands/temporary_file.h"
#include "ui/commands/commands.h"

#include <string>

namespace tarrow {

class CommandRunner {
 public:
  // `home` is where the program stands. All outlive the object.
  CommandRunner(const DocumentServices& program, const std::string& home) : program_(program), home_(home) {}

  // A command that still runs goes on, and writes to its output file.
  ~CommandRunner();

  bool IsRunning() const { return running_.IsRunning(); }
  bool HasOutput() const { return output_.Exists(); }

  // Starts the command line of `command` in the current directory. Throws CFileException when its files
  // cannot be made.
  void Run(CommandId command, const std::string& commandLine);
  void RunCompile(const CompileCommand& compile);

  // Opens the output in a window and removes the file.
  void ShowOutput();

  // The frame has got kCommandEndedMessage, or kCommandTickMessage.
  void OnEnded(DWORD exitCode, DWORD error);
  void OnTick();

 private:
  void ShowTask(bool isRunning);
  void Announce(DWORD exitCode);

  const DocumentServices& program_;
  const std::string& home_;
  RunningCommand running_;
  TemporaryFile output_;
  TemporaryFile response_;
  std::string directory_;    // where the command was started
  std::string commandLine_;  // as the wrapper has got it
  std::string name_;         // of the command, for the status bar
};

}  // namespace tarrow
