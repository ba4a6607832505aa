// A program with windows as a benchmark drives it from outside: started, looked at until it rests, ended.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tarrow::bench {

class WindowProcess {
 public:
  // Starts a command; IsRunning() says whether that succeeded.
  explicit WindowProcess(std::wstring command) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    isRunning_ = CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                &startup, &process_) != 0;
  }
  // Ends the program if it has not ended by itself.
  ~WindowProcess() {
    if (!isRunning_) return;
    TerminateProcess(process_.hProcess, 0);
    WaitForSingleObject(process_.hProcess, 30000);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  WindowProcess(const WindowProcess&) = delete;
  WindowProcess& operator=(const WindowProcess&) = delete;

  bool IsRunning() const { return isRunning_; }
  HANDLE Handle() const { return process_.hProcess; }

  // The visible main window; null while there is none.
  HWND MainWindow() const;

  // Whether it shows a window, looks at its messages, and has painted all that it shows.
  bool IsReady() const;

  // The windows inside the frame; -1 while there is no frame, or they are hidden.
  int Children() const;

  // Waits until the program is ready and `condition` holds; false when that takes longer than the limit.
  bool WaitUntil(const std::function<bool()>& condition, DWORD limitMilliseconds) const;

 private:
  PROCESS_INFORMATION process_ = {};
  bool isRunning_ = false;
};

}  // namespace tarrow::bench
