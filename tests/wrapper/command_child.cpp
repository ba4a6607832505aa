// The command that the tests let the wrapper run: it does what its first argument says.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void Write(DWORD stream, const char* text, std::size_t size) {
  DWORD written = 0;
  WriteFile(GetStdHandle(stream), text, static_cast<DWORD>(size), &written, nullptr);
}

void WriteLine(DWORD stream, const char* text, int number) {
  char line[64];
  Write(stream, line, static_cast<std::size_t>(std::snprintf(line, sizeof line, "%s %d\r\n", text, number)));
}

int Streams(int count) {
  for (int i = 0; i < count; ++i)
    WriteLine(i % 2 ? STD_ERROR_HANDLE : STD_OUTPUT_HANDLE, i % 2 ? "err" : "out", i);
  return 0;
}

int CopyInput() {
  char buffer[256];
  for (DWORD count;
       ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer, sizeof buffer, &count, nullptr) && count;)
    Write(STD_OUTPUT_HANDLE, buffer, count);
  return 0;
}

int TellCommandLine() {
  char text[4096];
  int length = WideCharToMultiByte(CP_UTF8, 0, GetCommandLineW(), -1, text, sizeof text, nullptr, nullptr);
  Write(STD_OUTPUT_HANDLE, text, static_cast<std::size_t>(length - 1));
  return 0;
}

// Lines of 64 bytes, 4 KB at a time, as a C run-time writes them.
int Flood(int megabytes) {
  std::string block;
  while (block.size() < 4096) block += "sixty-two characters and a line end make sixty-four, no more no\r\n";
  block.resize(4096);
  for (int i = 0; i < megabytes * 256; ++i) Write(STD_OUTPUT_HANDLE, block.data(), block.size());
  return 0;
}

// Starts this program anew with another argument and the same handles, and does not wait for it.
int Start(const char* argument) {
  char line[MAX_PATH + 64];
  GetModuleFileNameA(nullptr, line, MAX_PATH);
  std::string command = "\"" + std::string(line) + "\" " + argument;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                      &process))
    return 9;
  WriteLine(STD_OUTPUT_HANDLE, "started", static_cast<int>(process.dwProcessId));
  return 0;
}

BOOL WINAPI Ignore(DWORD) {
  return TRUE;
}

// Ends as Windows ends a program that takes no notice of Ctrl+C; where Wine does it, the exit code is 0.
BOOL WINAPI EndInterrupted(DWORD) {
  ExitProcess(0xC000013A);
}

int WaitUntilGone(const char* path) {
  while (GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES) Sleep(10);
  return 0;
}

[[noreturn]] void WaitForever(bool ignoringBreak) {
  SetConsoleCtrlHandler(ignoringBreak ? Ignore : EndInterrupted, TRUE);
  WriteLine(STD_OUTPUT_HANDLE, "waiting", static_cast<int>(GetCurrentProcessId()));
  for (;;) Sleep(INFINITE);
}

// A compiler for tests: every line that begins with "int" is to end with ";". What it complains about it
// names as the compilers of this system do; without a complaint it makes an object file.
int Compile(const std::string& path) {
  std::ifstream source(path);
  std::string line;
  int number = 0, errors = 0;
  while (std::getline(source, line)) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (!line.starts_with("int") || line.ends_with(';')) continue;
    std::printf("%s(%d,%d) : error C2146: missing ';' at the end\n", path.c_str(), number,
                static_cast<int>(line.size()) + 1);
    ++errors;
  }
  if (errors == 0) std::ofstream(path + ".obj") << "object";
  return errors;
}

// Writes what stands in the file that "@name" names.
int ShowResponse(const char* argument) {
  std::ifstream file(argument + 1, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(file), {});
  Write(STD_OUTPUT_HANDLE, text.data(), text.size());
  return 3;
}

bool HasText(const char* path, const char* text) {
  char buffer[4096];
  DWORD count = 0;
  HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, 0, nullptr);
  ReadFile(file, buffer, sizeof buffer, &count, nullptr);
  CloseHandle(file);
  return std::string(buffer, count).find(text) != std::string::npos;
}

// Runs the command line behind "--", and presses Ctrl+C in the console as soon as the file `output` tells
// that something waits there. Ends with the exit code of what it has run.
int Interrupt(const char* output) {
  SetConsoleCtrlHandler(Ignore, TRUE);
  std::string line = std::strstr(GetCommandLineA(), " -- ") + 4;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process))
    return 9;
  while (!HasText(output, "waiting ") && WaitForSingleObject(process.hProcess, 10) == WAIT_TIMEOUT) continue;
  if (!GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) return 10;
  DWORD code = 0;
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &code);
  return static_cast<int>(code);
}

}  // namespace

int main(int count, char** arguments) {
  std::string verb = count > 1 ? arguments[1] : "";
  const char* argument = count > 2 ? arguments[2] : "";
  if (verb == "exit") ExitProcess(std::strtoul(argument, nullptr, 0));
  if (verb == "streams") return Streams(std::atoi(argument));
  if (verb == "input") return CopyInput();
  if (verb == "line") return TellCommandLine();
  if (verb == "flood") return Flood(std::atoi(argument));
  if (verb == "start") return Start("wait");
  if (verb == "wait") WaitForever(false);
  if (verb == "wait-stubbornly") {
    Start("wait");
    WaitForever(true);
  }
  if (*arguments[count - 1] == '@') return ShowResponse(arguments[count - 1]);
  if (verb == "until-gone") return WaitUntilGone(argument);
  if (verb == "compile") return Compile(arguments[count - 1]);
  if (verb == "interrupt") return Interrupt(argument);
  return 100;
}
