#include "shell/app.h"

#include "framework/directories.h"
#include "framework/file_system.h"
#include "framework/message_loop.h"
#include "framework/unicode.h"
#include "shell/init_file.h"
#include "shell/session.h"
#include "tools/file_dir.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"

#include <shellapi.h>

namespace tarrow {
namespace {

constexpr std::string_view kHelpFileName = "tarrow.hlp";

// What a handler let out. Memory that ended has left everything as it was; the user is told, the program goes
// on.
void ReportException(Host& host, std::exception_ptr exception) {
  try {
    std::rethrow_exception(exception);
  } catch (const CFileException& error) {
    host.ShowFileError(nullptr, error);
  } catch (const CYieldException&) {
    host.Alert(MB_ICONEXCLAMATION);
    host.ShowStatusId(kTextCancelled, 5);
  } catch (const std::exception&) {
    host.ReportOutOfMemory();
  }
}

Host* reportingHost = nullptr;

// The placement of the settings, unless it stands off every screen: the system places the frame then.
RECT FrameRectangle(const FramePlacement& placement) {
  RECT usual{CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};
  if (!placement.bounds) return usual;
  RECT bounds{placement.bounds->left, placement.bounds->top, placement.bounds->right,
              placement.bounds->bottom};
  if (!::MonitorFromRect(&bounds, MONITOR_DEFAULTTONULL)) return usual;
  return {bounds.left, bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top};
}

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

CTwApp::CTwApp() : program_{files_, MakeSettingsStore(AnsiToUtf8)}, frame_(program_) {
  reportingHost = &frame_;
  CWnd::SetExceptionReporter(
      [](std::exception_ptr exception) { ReportException(*reportingHost, exception); });
}

int CTwApp::Run(std::string_view commandLine, int showCommand) {
  CommandLineOptions options = ParseCommandLine(commandLine);
  FindPlaces(options);
  LoadProgramSettings(options);
  if (!ShowFrame(showCommand)) return 1;
  std::size_t named = OpenNamedFiles(options);
  if (options.print) return 1;
  if (named > 0)
    frame_.ArrangeWindows(false);
  else
    frame_.RestoreSession();
  ::DragAcceptFiles(frame_.Handle(), TRUE);
  return MessageLoop::Run(LoopTargets(), [this] { frame_.OnIdle(); });
}

void CTwApp::FindPlaces(const CommandLineOptions& options) {
  DiskLookup disk;
  program_.homeDirectory = HomeDirectory(ProgramPath());
  program_.initFile = FindInitFile(disk, options.initFile, program_.homeDirectory);
  program_.helpFile = program_.homeDirectory + std::string(kHelpFileName);
}

// The command line takes precedence over the settings.
void CTwApp::LoadProgramSettings(const CommandLineOptions& options) {
  files_.SetGlobalFile(program_.initFile);
  files_.OnMoved([this](const std::string& wanted, const std::string& kept) {
    frame_.ShowMessageBox(nullptr, MB_ICONINFORMATION, kTextSettingsElsewhere, {wanted, kept});
  });
  program_.settings.project.directory = WorkingDirectoryOf(options);
  LoadSettings(files_, program_.store, true, program_.settings);
  if (options.editorOnly) program_.settings.global.Set(kNoProject, true);
  if (options.arrange) program_.settings.global.arrange = *options.arrange;
  program_.screenFont = ToLogFont(program_.settings.global.screenFont);
}

bool CTwApp::ShowFrame(int showCommand) {
  std::string value;
  (void)program_.store.ReadString(kSettingsSection, "Window", value);
  FramePlacement placement =
      ParsePlacement(value, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
  if (!frame_.CreateMain(FrameRectangle(placement))) return false;
  if (placement.maximised && showCommand != SW_SHOWMINNOACTIVE) showCommand = SW_SHOWMAXIMIZED;
  frame_.LoadKeyBindings();
  ::ShowWindow(frame_.Handle(), showCommand);
  ::UpdateWindow(frame_.Handle());
  return true;
}

// Opens, and with -p prints and closes, every file of the command line; returns how many were named.
std::size_t CTwApp::OpenNamedFiles(const CommandLineOptions& options) {
  DiskLookup disk;
  CFileDir list(disk);
  WaitState wait(frame_, !options.print);
  std::size_t count = list.Build({options.files});
  while (const std::string* path = list.Next()) {
    bool opened = frame_.OpenFile(*path, false, false);
    if (!options.print || !opened) continue;
    CMDIChildWnd* child = frame_.ActiveChild();
    child->Send(WM_COMMAND, kFilePrint);
    ::SendMessageW(frame_.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(child->Handle()), 0);
  }
  return count;
}

MessageLoop::Targets CTwApp::LoopTargets() const {
  return {frame_.Handle(), frame_.Client(),
          [this](UINT key, BYTE modifiers) { return frame_.CommandOfKey(key, modifiers); }};
}

}  // namespace tarrow
