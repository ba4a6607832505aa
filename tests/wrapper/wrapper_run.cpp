#include "wrapper_run.h"

#include "tests/wrapper/test_programs.h"

#include <cstdlib>
#include <utility>

namespace tarrow {
namespace {

constexpr DWORD kPatience = 30'000;

std::wstring MakeName() {
  wchar_t directory[MAX_PATH], name[MAX_PATH];
  GetTempPathW(MAX_PATH, directory);
  GetTempFileNameW(directory, L"TPX", 0, name);
  return name;
}

HANDLE Open(const std::wstring& path, bool write) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileW(path.c_str(), write ? GENERIC_WRITE : GENERIC_READ,
                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inherited,
                     write ? CREATE_ALWAYS : OPEN_EXISTING, 0, nullptr);
}

std::string ReadAll(const std::wstring& path) {
  HANDLE file = Open(path, false);
  std::string bytes;
  char buffer[4096];
  for (DWORD count; ReadFile(file, buffer, sizeof buffer, &count, nullptr) && count;)
    bytes.append(buffer, count);
  CloseHandle(file);
  return bytes;
}

void WriteAll(const std::wstring& path, const std::string& bytes) {
  HANDLE file = Open(path, true);
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
}

HANDLE Create(std::wstring line, HANDLE input, HANDLE output, DWORD flags) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = input;
  startup.hStdOutput = output;
  startup.hStdError = output;
  PROCESS_INFORMATION process{};
  CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, flags, nullptr, nullptr, &startup, &process);
  CloseHandle(process.hThread);
  return process.hProcess;
}

}  // namespace

WrapperRun::WrapperRun() : output_(MakeName()), console_(MakeName()), input_(MakeName()) {}

WrapperRun::~WrapperRun() {
  if (process_) CloseHandle(process_);
  for (const std::wstring& path : {output_, console_, input_}) DeleteFileW(path.c_str());
}

std::wstring WrapperRun::Line(const std::wstring& command) const {
  return L"\"" + WrapperProgram() + L"\" \"" + output_ + L"\" " + command;
}

void WrapperRun::StartLine(const std::wstring& line, DWORD flags) {
  if (process_) CloseHandle(process_);
  WriteAll(input_, input);
  HANDLE in = Open(input_, false), out = Open(console_, true);
  process_ = Create(line, in, out, flags);
  CloseHandle(in);
  CloseHandle(out);
}

void WrapperRun::Start(const std::wstring& command) {
  StartLine(Line(command), 0);
}

void WrapperRun::StartAndInterrupt(const std::wstring& command) {
  std::wstring helper = L"\"" + CommandProgram() + L"\" interrupt ";
  StartLine(helper + L"\"" + output_ + L"\" -- " + Line(command), CREATE_NEW_CONSOLE);
}

DWORD WrapperRun::Wait() {
  DWORD code = 0xDEAD;
  if (WaitForSingleObject(process_, kPatience) == WAIT_OBJECT_0) GetExitCodeProcess(process_, &code);
  return code;
}

std::string WrapperRun::Output() const {
  return ReadAll(output_);
}
std::string WrapperRun::Console() const {
  return ReadAll(console_);
}

DWORD WrapperRun::WaitForNumber(const std::string& text) const {
  for (ULONGLONG start = GetTickCount64(); GetTickCount64() - start < kPatience; Sleep(10)) {
    std::string output = Output();
    std::size_t at = output.find(text), end = output.find('\n', at);
    if (at != output.npos && end != output.npos)
      return static_cast<DWORD>(std::strtoul(output.c_str() + at + text.size(), nullptr, 10));
  }
  return 0;
}

double TimeRedirected(std::wstring line, const std::wstring& output) {
  LARGE_INTEGER before, after, frequency;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&before);
  HANDLE out = Open(output, true);
  HANDLE process = Create(std::move(line), GetStdHandle(STD_INPUT_HANDLE), out, 0);
  WaitForSingleObject(process, INFINITE);
  QueryPerformanceCounter(&after);
  CloseHandle(process);
  CloseHandle(out);
  return 1000.0 * static_cast<double>(after.QuadPart - before.QuadPart) /
         static_cast<double>(frequency.QuadPart);
}

bool IsGone(DWORD processId) {
  HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
  if (!process) return true;
  bool gone = WaitForSingleObject(process, 10'000) == WAIT_OBJECT_0;
  CloseHandle(process);
  return gone;
}

}  // namespace tarrow
