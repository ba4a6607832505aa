#include "program_run.h"

#include <windows.h>

namespace tarrow {
namespace {

HANDLE OpenStream(const std::filesystem::path& path, bool write) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileW(path.c_str(), write ? GENERIC_WRITE : GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                     &inherited, write ? CREATE_ALWAYS : OPEN_EXISTING, 0, nullptr);
}

// The words of a test hold neither quotes nor a backslash at their end.
std::wstring CommandLine(const std::vector<std::string>& command) {
  std::wstring line;
  for (const std::string& word : command)
    line.append(L"\"")
        .append(std::filesystem::path(std::u8string(word.begin(), word.end())).wstring())
        .append(L"\" ");
  return line;
}

}  // namespace

int RunProcess(const std::vector<std::string>& command, const std::filesystem::path& directory,
               const std::filesystem::path& input, const std::filesystem::path& out,
               const std::filesystem::path& err) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = OpenStream(input, false);
  startup.hStdOutput = OpenStream(out, true);
  startup.hStdError = OpenStream(err, true);
  PROCESS_INFORMATION process{};
  std::wstring line = CommandLine(command);
  DWORD code = static_cast<DWORD>(-1);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, directory.c_str(), &startup,
                     &process)) {
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  for (HANDLE stream : {startup.hStdInput, startup.hStdOutput, startup.hStdError}) CloseHandle(stream);
  return static_cast<int>(code);
}

}  // namespace tarrow
