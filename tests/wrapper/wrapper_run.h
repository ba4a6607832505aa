// Runs projexec on a file in the directory for temporary files, and looks at what it leaves there.
#pragma once

#include <windows.h>

#include <string>

namespace tarrow {

class WrapperRun {
 public:
  // Makes the names of the files. Nothing is started yet.
  WrapperRun();
  ~WrapperRun();
  WrapperRun(const WrapperRun&) = delete;
  WrapperRun& operator=(const WrapperRun&) = delete;

  std::string input;  // what the command can read

  const std::wstring& OutputPath() const { return output_; }

  // Starts the wrapper for `command`.
  void Start(const std::wstring& command);
  HANDLE Process() const { return process_; }

  // Starts it in a console of its own, in which Ctrl+C is pressed once the command says "waiting".
  void StartAndInterrupt(const std::wstring& command);

  // Waits for the wrapper's end, half a minute at most, and returns its exit code.
  DWORD Wait();

  DWORD Run(const std::wstring& command) {
    Start(command);
    return Wait();
  }

  // What stands in the output file and what came to the wrapper's own output.
  std::string Output() const;
  std::string Console() const;

  // Waits until the output holds `text`; returns the number behind it.
  DWORD WaitForNumber(const std::string& text) const;

 private:
  void StartLine(const std::wstring& line, DWORD flags);
  std::wstring Line(const std::wstring& command) const;

  HANDLE process_ = nullptr;
  std::wstring output_, console_, input_;
};

// Starts any command line with its output in a file, as a redirection does; returns the milliseconds it took.
[[nodiscard]] double TimeRedirected(std::wstring line, const std::wstring& output);

// Whether the process is gone within ten seconds.
[[nodiscard]] bool IsGone(DWORD processId);

}  // namespace tarrow
