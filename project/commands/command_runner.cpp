#include "project/commands/command_runner.h"

#include "base/path_text.h"
#include "base/text_format.h"
#include "base/utf16.h"
#include "edit/documents/log.h"
#include "edit/lexers/lexers.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "project/commands/tool_code_pages.h"
#include "project/commands/tool_output.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

constexpr UINT_PTR kTickTimer = 0x5450;
constexpr UINT kTick = 1000;  // milliseconds
constexpr int kStatusSeconds = 5;

void CALLBACK PostTick(HWND frame, UINT, UINT_PTR, DWORD) {
  ::PostMessageW(frame, kCommandTickMessage, 0, 0);
}

// The text of a command's menu item without the marks of a menu.
std::string PlainName(CommandId command) {
  std::string name;
  for (char c : CommandMenuText(command)) {
    if (c == '\t' || c == '.') break;
    if (c != '&') name += c;
  }
  return name;
}

std::string TaskText(const std::string& name, int seconds) {
  if (seconds < 3600) return FormatText("%s %d:%02d", {name, seconds / 60, seconds % 60});
  return FormatText("%s %d:%02d:%02d", {name, seconds / 3600, seconds / 60 % 60, seconds % 60});
}

// The console of the command has gone, or is about to. Where the system does not say who comes next, or still
// has the console in front, that is the frame; a window that the user has turned to stays.
void TakeFocusBack(HWND frame) {
  HWND front = ::GetForegroundWindow();
  wchar_t title[128] = L"";
  if (front) ::GetWindowTextW(front, title, static_cast<int>(std::size(title)));
  if (!front || ToUtf8(title).starts_with(LoadText(kTextConsoleTitle))) ::SetForegroundWindow(frame);
}

// Reads the places in the lines of a tool that ran in `directory`.
PlaceFinder PlacesIn(std::string directory) {
  return [directory = std::move(directory)](const LineReader& lines, std::int64_t number) {
    std::string line = lines(number);
    return ParseSourcePlace(IsUtf8(line) ? line : AnsiToUtf8(line), [&](const std::string& name) {
      std::string path = PathFrom(directory, name);
      return FileExists(path) && !IsDirectory(path);
    });
  };
}

TextBuffer BufferOf(std::string_view text) {
  TextBuffer buffer;
  auto size = static_cast<std::int64_t>(text.size());
  std::ranges::copy(text, buffer.PrepareLoad(size).begin());
  buffer.FinishLoad(size);
  return buffer;
}

}  // namespace

CommandRunner::~CommandRunner() {
  if (!IsRunning()) return;
  output_.Abandon();
  response_.Abandon();
}

void CommandRunner::RunCompile(const CompileCommand& compile) {
  if (compile.NeedsResponseFile()) {
    response_.Create();
    response_.Write(EncodeForTools(compile.ResponseText()));
  }
  Run(kProjectCompile, compile.Line(response_.Path()));
}

void CommandRunner::Run(CommandId command, const std::string& commandLine) {
  output_.Create();
  directory_ = WorkingDirectory();
  name_ = PlainName(command);
  commandLine_ = WrapperCommand(home_, output_.Path(), commandLine);
  if (!running_.Start(program_.frame.Handle(), WrapperPath(home_), commandLine_)) {
    response_.Remove();
    return program_.messages.Alert(MB_OK);
  }
  ShowTask(true);
}

void CommandRunner::ShowTask(bool isRunning) {
  HWND frame = program_.frame.Handle();
  if (isRunning)
    ::SetTimer(frame, kTickTimer, kTick, PostTick);
  else
    ::KillTimer(frame, kTickTimer);
  program_.status.PublishTask(isRunning ? TaskText(name_, running_.Seconds()) : std::string());
}

void CommandRunner::OnTick() {
  if (IsRunning()) ShowTask(true);
}

void CommandRunner::OnEnded(DWORD exitCode, DWORD error) {
  running_.Finish();
  ShowTask(false);
  TakeFocusBack(program_.frame.Handle());
  response_.Remove();
  if (error != 0)
    program_.messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCreateProcess, {error, commandLine_});
  try {
    if (exitCode != 0)
      ShowOutput();
    else if (output_.Size() == 0)
      output_.Remove();
  } catch (...) {
    Announce(exitCode);
    throw;
  }
  Announce(exitCode);
}

void CommandRunner::Announce(DWORD exitCode) {
  program_.messages.Alert(exitCode != 0 ? MB_ICONSTOP : MB_OK);
  program_.status.ShowStatusId(exitCode != 0 ? kTextTaskFailed : kTextTaskSucceeded, kStatusSeconds);
}

void CommandRunner::ShowOutput() {
  WaitState wait(program_.waiting);
  try {
    ChangeWorkingDirectory(directory_);
  } catch (const CFileException&) {
    // The directory is gone; what the tools wrote can be read all the same.
  }
  std::string text = ToolOutputText(ReadWholeFile(output_.Path()), SystemCodePage(), OemCodePage());
  CTwLog* log = program_.documents.NewResultWindow(LoadText(kTextLogTitle), PlacesIn(directory_));
  if (!log) return;
  log->ReadBy(BuildLogLexer());
  log->Control().Adopt(BufferOf(text));
  log->Finish();
  output_.Remove();
}

}  // namespace tarrow
