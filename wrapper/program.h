// Starts a command as a process whose output goes to a file: as a program where it is one, else through the
// command interpreter.
#pragma once

#include <windows.h>

#include <string_view>

namespace tarrow {

struct StartedCommand {
  DWORD error = 0;  // of the system; 0: the command runs
  HANDLE process = nullptr;
  HANDLE job = nullptr;  // holds the command and all that it starts; null where the system gave none
};

// Starts `command` with `output` for its output and error stream, and the standard input of this program.
// While the job is open its processes end with this program, until ReleaseJob().
[[nodiscard]] StartedCommand StartCommand(std::wstring_view command, HANDLE output);

// Lets the processes of a job that still run go on by themselves.
void ReleaseJob(HANDLE job);

// Memory for text, given back when the process ends.
[[nodiscard]] wchar_t* AllocateText(std::size_t length);

}  // namespace tarrow
