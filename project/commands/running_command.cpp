#include "project/commands/running_command.h"

#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <memory>

namespace tarrow {
namespace {

constexpr DWORD kFailed = 1;  // the exit code of what could not be started or waited for

// What the thread works with; it belongs to it.
struct Job {
  HWND frame;
  std::wstring program;
  std::wstring commandLine;
  std::wstring title;
};

// Waits without limit; the process may run for as long as it likes.
DWORD WaitForExit(HANDLE process) {
  DWORD code = kFailed;
  if (::WaitForSingleObject(process, INFINITE) != WAIT_OBJECT_0) {
    ::MessageBeep(MB_ICONEXCLAMATION);
    return kFailed;
  }
  ::GetExitCodeProcess(process, &code);
  return code;
}

DWORD RunJob(Job& job, DWORD& error) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.lpTitle = job.title.data();
  PROCESS_INFORMATION process{};
  if (!::CreateProcessW(job.program.c_str(), job.commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_NEW_CONSOLE | NORMAL_PRIORITY_CLASS, nullptr, nullptr, &startup, &process)) {
    error = ::GetLastError();
    return kFailed;
  }
  KernelHandle thread(process.hThread), handle(process.hProcess);
  return WaitForExit(handle.Get());
}

DWORD WINAPI ThreadProc(void* parameter) {
  std::unique_ptr<Job> job(static_cast<Job*>(parameter));
  DWORD error = 0;
  DWORD code = RunJob(*job, error);
  ::PostMessageW(job->frame, kCommandEndedMessage, code, static_cast<LPARAM>(error));
  return 0;
}

}  // namespace

bool RunningCommand::Start(HWND frame, const std::string& program, const std::string& commandLine) {
  auto job = std::make_unique<Job>(
      Job{frame, ToWide(program), ToWide(commandLine), ToWide(LoadText(kTextConsoleTitle))});
  thread_.Reset(::CreateThread(nullptr, 0, ThreadProc, job.get(), 0, nullptr));
  if (!thread_) return false;
  (void)job.release();  // the thread's now
  started_ = ::GetTickCount64();
  return true;
}

int RunningCommand::Seconds() const {
  return static_cast<int>((::GetTickCount64() - started_) / 1000);
}

}  // namespace tarrow
