#include "shell/app.h"

#include "base/path_text.h"
#include "base/words.h"
#include "framework/directories.h"
#include "framework/file_system.h"
#include "framework/message_loop.h"
#include "framework/unicode.h"
#include "shell/state/init_file.h"
#include "shell/state/session.h"
#include "tools/file_lists/file_dir.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"

#include <shellapi.h>

namespace tarrow {
namespace {

constexpr std::string_view kHelpFileName = "tarrow.hlp";

MessageBoxes* reporter = nullptr;

// The directory of -d in full, so that it means the same in the next run; empty when there is none.
std::string WorkingDirectoryOf(const CommandLineOptions& options) {
  if (options.workingDirectory.empty()) return {};
  try {
    return FullPathLower(options.workingDirectory);
  } catch (const CFileException&) {
    return {};
  }
}

}  // namespace

CTwApp::CTwApp() : program_(files_) {
  reporter = &program_.messages;
  CWnd::SetExceptionReporter([](std::exception_ptr exception) { reporter->ReportException(exception); });
}

int CTwApp::Run(std::string_view commandLine, int showCommand) {
  CommandLineOptions options = ParseCommandLine(commandLine);
  FindPlaces(options);
  LoadProgramSettings(options);
  if (!program_.frame.CreateMain({CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT})) return 1;
  if (options.print) return PrintNamedFiles(options);
  ShowFrame(showCommand);
  if (OpenNamedFiles(options) > 0)
    program_.windows.Arrange(false);
  else
    program_.session.Restore();
  ::DragAcceptFiles(program_.frame.Handle(), TRUE);
  ProjectRoom::CleanUp();
  return MessageLoop::Run(LoopTargets(), [this] {
    program_.frame.OnIdle();
    program_.changedFiles.OnIdle();
  });
}

void CTwApp::FindPlaces(const CommandLineOptions& options) {
  ProgramState& state = program_.state;
  DiskLookup disk;
  state.homeDirectory = HomeDirectory(ProgramPath());
  state.initFile = FindInitFile(disk, options.initFile, state.homeDirectory);
  state.helpFile = state.homeDirectory + std::string(kHelpFileName);
}

// The command line takes precedence over the settings.
void CTwApp::LoadProgramSettings(const CommandLineOptions& options) {
  ProgramState& state = program_.state;
  files_.SetGlobalFile(state.initFile);
  files_.OnMoved([this](const std::string& wanted, const std::string& kept) {
    program_.messages.ShowMessageBox(nullptr, MB_ICONINFORMATION, kTextSettingsElsewhere, {wanted, kept});
  });
  state.settings.project.directory = WorkingDirectoryOf(options);
  LoadSettings(files_, state.store, true, state.settings);
  if (options.editorOnly) state.settings.global.Set(kNoProject, true);
  if (options.arrange) state.settings.global.arrange = *options.arrange;
  state.screenFont = ToLogFont(state.settings.global.screenFont);
}

void CTwApp::ShowFrame(int showCommand) {
  if (PlaceFrame() && showCommand != SW_SHOWMINNOACTIVE) showCommand = SW_SHOWMAXIMIZED;
  program_.projects.ShowState();
  program_.keys.Load();
  program_.files.ShowRecentFiles();
  ::ShowWindow(program_.frame.Handle(), showCommand);
  ::UpdateWindow(program_.frame.Handle());
}

// Moves the frame from where the system has put it to where the settings say, unless that is off every
// screen. Returns whether it was maximised.
bool CTwApp::PlaceFrame() {
  std::string value;
  (void)program_.state.store.ReadString(kSettingsSection, "Window", value);
  RECT usual{};
  ::GetWindowRect(program_.frame.Handle(), &usual);
  FramePlacement placement = ParsePlacement(value,
                                            {static_cast<int>(usual.left), static_cast<int>(usual.top),
                                             static_cast<int>(usual.right), static_cast<int>(usual.bottom)},
                                            ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
  if (!placement.bounds) return placement.maximised;
  auto [left, top, right, bottom] = *placement.bounds;
  RECT bounds{left, top, right, bottom};
  if (::MonitorFromRect(&bounds, MONITOR_DEFAULTTONULL))
    ::MoveWindow(program_.frame.Handle(), left, top, right - left, bottom - top, FALSE);
  return placement.maximised;
}

// Of what was named nothing is a file: a directory by itself, or a pattern that finds directories only.
void CTwApp::ReportNoFiles(const CommandLineOptions& options) {
  std::vector<std::string> words = SplitWords(options.files);
  if (words.empty()) return;
  bool isDirectory = IsDirectory(WithoutTrailingSeparators(words.front()));
  int text = isDirectory ? kTextNamesDirectory : kTextNamesNoFile;
  program_.messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, text, {words.front()});
}

// Opens every file of the command line; returns how many were named.
std::size_t CTwApp::OpenNamedFiles(const CommandLineOptions& options) {
  DiskLookup disk;
  CFileDir list(disk);
  WaitState wait(program_.wait, true);
  std::size_t count = list.Build({options.files});
  if (count == 0) ReportNoFiles(options);
  while (const std::string* path = list.Next()) program_.files.OpenFile(*path, false, false);
  return count;
}

// Prints every file of the command line, in windows of a frame that nobody sees; returns the exit code.
int CTwApp::PrintNamedFiles(const CommandLineOptions& options) {
  DiskLookup disk;
  CFileDir list(disk);
  list.Build({options.files});
  int exitCode = 0;
  while (const std::string* path = list.Next())
    if (!PrintFile(*path)) exitCode = 1;
  return exitCode;
}

bool CTwApp::PrintFile(const std::string& path) {
  bool isPrinted = false;
  if (!program_.files.OpenFile(path, false, false)) return isPrinted;
  try {
    isPrinted = program_.rooms.print.PrintActiveDocument();
  } catch (const std::exception&) {
    program_.messages.ReportException(std::current_exception());
  }
  HWND window = program_.frame.ActiveChild()->Handle();
  ::SendMessageW(program_.frame.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(window), 0);
  return isPrinted;
}

MessageLoop::Targets CTwApp::LoopTargets() const {
  return {program_.frame.Handle(), program_.frame.Client(),
          [this](UINT key, BYTE modifiers) { return program_.keys.CommandOfKey(key, modifiers); }};
}

}  // namespace tarrow
