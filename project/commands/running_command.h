// RunningCommand: the one command of the project that runs, watched by a thread of its own.
//
// The thread starts the process in a console of its own, waits for its end, and posts kCommandEndedMessage to
// the frame; it touches nothing else. All that follows happens where the message arrives, so nothing needs a
// lock. When the program ends first, the process goes on.
#pragma once

#include "framework/handle.h"

#include <windows.h>

#include <string>

namespace tarrow {

class RunningCommand {
 public:
  bool IsRunning() const { return static_cast<bool>(thread_); }

  // Starts `program` (its full path) with a command line. False when no thread could be had.
  [[nodiscard]] bool Start(HWND frame, const std::string& program, const std::string& commandLine);

  // kCommandEndedMessage has arrived.
  void Finish() { thread_.Reset(); }

  // Seconds since the start.
  int Seconds() const;

 private:
  KernelHandle thread_;
  ULONGLONG started_ = 0;
};

}  // namespace tarrow
