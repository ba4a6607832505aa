// projexec OUTPUT COMMAND: runs a command with its output in a file and on the console, and ends with the
// command's exit code.
//
// Tarrow starts it for the commands of a project. The command gets the file itself for its output and error
// stream, as a redirection of the command interpreter would give it, rather than a pipe that this program
// passes on: so it costs nothing, keeps the order, and leaves everything written in the file even when this
// program is killed. Ctrl+C, Ctrl+Break and the closing of the console end the command and all that it has
// started.
#include "wrapper/call.h"
#include "wrapper/entry.h"
#include "wrapper/output_mirror.h"
#include "wrapper/program.h"

namespace tarrow {
namespace {

constexpr UINT kNoCommand = 2;    // exit codes of this program itself
constexpr UINT kNotFound = 9009;  // as the command interpreter has it
constexpr UINT kFailed = 1;
constexpr UINT kInterrupted = 0xC000013A;  // as the system has it for Ctrl+C

constexpr std::wstring_view kUsage = L"projexec OUTPUT COMMAND: runs a command with its output in a file\r\n";

constexpr DWORD kPeriod = 50;             // between two looks at the clock, in milliseconds
constexpr DWORD kGrace = 1000;            // for the command to end itself after Ctrl+C
constexpr ULONGLONG kLeastSpace = 65536;  // on the disk; with less, output may have been lost

HANDLE interruption = nullptr;  // set by Ctrl+C and its like
volatile LONG isClosing = 0;    // the console goes away: no grace

TARROW_CALLED_BY_SYSTEM BOOL WINAPI OnConsoleEvent(DWORD event) {
  bool closes = event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT;
  if (closes) ::InterlockedExchange(&isClosing, 1);
  ::SetEvent(interruption);
  if (closes) ::Sleep(INFINITE);  // the process ends when this returns; the main thread ends it before
  return TRUE;
}

void Write(HANDLE to, std::wstring_view text) {
  static char bytes[4096];
  int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes,
                                     sizeof bytes, nullptr, nullptr);
  DWORD written = 0;
  if (length > 0) ::WriteFile(to, bytes, static_cast<DWORD>(length), &written, nullptr);
}

// One line that names what failed and the system's words for the cause, to the output and the console.
void Report(HANDLE output, std::wstring_view doing, std::wstring_view name, DWORD error) {
  static wchar_t cause[1024];
  static wchar_t nameText[512];
  std::size_t length = 0;
  for (; length < name.size() && length < 511; ++length) nameText[length] = name[length];
  DWORD_PTR inserts[] = {reinterpret_cast<DWORD_PTR>(nameText), 0, 0, 0};
  DWORD count = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_ARGUMENT_ARRAY | FORMAT_MESSAGE_MAX_WIDTH_MASK, nullptr,
      error, 0, cause, 1024, reinterpret_cast<va_list*>(inserts));
  while (count > 0 && cause[count - 1] == L' ') --count;
  for (HANDLE to : {output, ::GetStdHandle(STD_ERROR_HANDLE)}) {
    for (std::wstring_view piece : {std::wstring_view(L"projexec: "), doing, std::wstring_view(L" '"),
                                    std::wstring_view(nameText, length), std::wstring_view(L"': "),
                                    std::wstring_view(cause, count), std::wstring_view(L"\r\n")})
      Write(to, piece);
  }
}

UINT CannotStart(HANDLE output, std::wstring_view command, DWORD error) {
  Report(output, L"cannot start", FirstWord(command), error);
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? kNotFound : kFailed;
}

void End(const StartedCommand& command) {
  if (command.job)
    ::TerminateJobObject(command.job, kInterrupted);
  else
    ::TerminateProcess(command.process, kInterrupted);
}

// Waits for the command. Returns whether it was interrupted.
bool WaitFor(const StartedCommand& command) {
  HANDLE handles[] = {command.process, interruption};
  bool isInterrupted = false;
  ULONGLONG deadline = 0;
  for (;;) {
    DWORD reason =
        ::WaitForMultipleObjects(isInterrupted ? 1 : 2, handles, FALSE, isInterrupted ? kPeriod : INFINITE);
    if (reason == WAIT_OBJECT_0 || reason == WAIT_FAILED)
      return isInterrupted || ::WaitForSingleObject(interruption, 0) == WAIT_OBJECT_0;
    if (reason == WAIT_OBJECT_0 + 1) {
      isInterrupted = true;
      deadline = ::GetTickCount64() + kGrace;
    }
    if (isInterrupted && (isClosing || ::GetTickCount64() >= deadline)) End(command);
  }
}

// A full disk does not fail the command, which seldom looks whether its messages were written.
bool IsDiskFull(const wchar_t* output) {
  wchar_t directory[MAX_PATH];
  DWORD length = ::GetFullPathNameW(output, MAX_PATH, directory, nullptr);
  if (length == 0 || length >= MAX_PATH) return false;
  while (length > 0 && directory[length - 1] != L'\\') --length;
  directory[length] = L'\0';
  ULARGE_INTEGER available;
  return ::GetDiskFreeSpaceExW(directory, &available, nullptr, nullptr) && available.QuadPart < kLeastSpace;
}

UINT ExitCode(const StartedCommand& command, bool isInterrupted, const wchar_t* output) {
  DWORD code = kFailed;
  ::GetExitCodeProcess(command.process, &code);
  if (code != 0) return code;
  if (isInterrupted) return kInterrupted;
  if (!IsDiskFull(output)) return 0;
  Report(::GetStdHandle(STD_OUTPUT_HANDLE), L"no room for", output, ERROR_DISK_FULL);
  return kFailed;
}

UINT RunCommand(std::wstring_view text, HANDLE output, const wchar_t* outputPath) {
  interruption = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
  ::SetConsoleCtrlHandler(nullptr, FALSE);
  ::SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
  StartedCommand command = StartCommand(text, output);
  if (command.error != 0) return CannotStart(output, text, command.error);
  OutputMirror mirror(outputPath);
  bool isInterrupted = WaitFor(command);
  if (isInterrupted) End(command);
  UINT code = ExitCode(command, isInterrupted, outputPath);
  ReleaseJob(command.job);
  ::CloseHandle(command.process);
  return code;
}

// A path with a NUL behind it.
const wchar_t* CopyText(std::wstring_view text) {
  wchar_t* copy = AllocateText(text.size() + 1);
  if (!copy) return L"";
  for (std::size_t i = 0; i < text.size(); ++i) copy[i] = text[i];
  copy[text.size()] = L'\0';
  return copy;
}

UINT Main(std::wstring_view line) {
  WrapperCall call = ReadWrapperCall(line);
  HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
  if (call.output.empty()) {
    Write(errors, kUsage);
    return kNoCommand;
  }
  const wchar_t* path = CopyText(call.output);
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  HANDLE output = ::CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (output == INVALID_HANDLE_VALUE) {
    Report(errors, L"cannot write", call.output, ::GetLastError());
    return kFailed;
  }
  UINT code = kNoCommand;
  if (call.command.empty()) {
    Write(output, L"projexec: there is no command to run\r\n");
    Write(errors, kUsage);
  } else {
    code = RunCommand(call.command, output, path);
  }
  ::CloseHandle(output);
  return code;
}

}  // namespace
}  // namespace tarrow

extern "C" TARROW_CALLED_BY_SYSTEM void mainCRTStartup() {
  ::ExitProcess(tarrow::Main(::GetCommandLineW()));
}
