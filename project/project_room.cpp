#include "project/project_room.h"

#include "edit/documents/child.h"
#include "framework/file_system.h"
#include "project/commands/build_dialog.h"
#include "project/commands/run_dialog.h"
#include "project/options/configure_project_dialog.h"
#include "project/options/new_directory.h"
#include "project/options/select_project_dialog.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

namespace tarrow {

constinit const MessageMap ProjectRoom::kMessageMap = MessageMap::Make<
    nullptr, tarrow::OnCommand<kProjectSelect, &ProjectRoom::OnSelect>,
    tarrow::OnCommand<kProjectConfigure, &ProjectRoom::OnConfigure>,
    OnCommandRange<kProjectCompile, kProjectViewLog, &ProjectRoom::OnCommand, &ProjectRoom::CommandStateOf>,
    On<kCommandEndedMessage, &ProjectRoom::OnEnded>, On<kCommandTickMessage, &ProjectRoom::OnTick>,
    OnCommandRange<kHelpSDK, kHelpEnvironment, &ProjectRoom::OnHelp, &ProjectRoom::HelpState>,
    OnCommandRange<kHelpOnWord, kHelpOnWord, &ProjectRoom::OnHelp, &ProjectRoom::HelpState>>();

ProjectRoom::ProjectRoom(const DocumentServices& program, ProjectSettings& settings,
                         ProjectSwitching& switching)
    : program_(program),
      settings_(settings),
      switching_(switching),
      runner_(program, settings.HomeDirectory()),
      help_(program) {}

CommandSource ProjectRoom::Source() const {
  return {settings_, settings_.DebugBuild(), settings_.ProjectValue(kTextKeyTarget),
          settings_.ProjectValue(kTextKeyTestArgs)};
}

bool ProjectRoom::HasFile() const {
  const CTwChild* child = program_.documents.ActiveDocument();
  return child && child->Has(kTextWindow) && !child->Has(kUntitled);
}

bool ProjectRoom::OfferToSave() const {
  return program_.documents.OfferToSave(kTextSaveBeforeContinuing);
}

CommandState ProjectRoom::CommandStateOf(UINT id) const {
  bool isIdle = !runner_.IsRunning() && !program_.settings.Has(kNoProject);
  if (id == kProjectCompile) return {isIdle && HasFile(), false};
  if (id == kProjectViewLog) return {isIdle && runner_.HasOutput(), false};
  return {isIdle, false};
}

// A key runs a command that the menu shows as grey; it beeps then.
void ProjectRoom::OnCommand(UINT id) {
  if (!CommandStateOf(id).enabled) return Warn();
  switch (id) {
    case kProjectCompile:
      return Compile();
    case kProjectLink:
      return runner_.Run(kProjectLink, LinkCommand(Source()));
    case kProjectBuild:
      return Build();
    case kProjectBuildTarget:
      return BuildTarget();
    case kProjectDebug:
      return RunDirectly(DebugCommand(Source()));
    case kProjectTest:
      return RunDirectly(TestCommand(Source()));
    case kProjectViewLog:
      return runner_.ShowOutput();
  }
}

void ProjectRoom::Compile() {
  std::string path = program_.documents.ActiveDocument()->Path();
  if (!OfferToSave()) return;
  if (CompileExtension(path).empty()) return program_.messages.Alert(MB_ICONSTOP);
  runner_.RunCompile(MakeCompileCommand(Source(), path));
}

void ProjectRoom::Build() {
  if (OfferToSave()) runner_.Run(kProjectBuild, BuildCommand(Source()));
}

void ProjectRoom::BuildTarget() {
  if (CBuildDialog(buildTarget_).DoModal(program_.frame.Handle()) != IDOK || !OfferToSave()) return;
  runner_.Run(kProjectBuildTarget, BuildTargetCommand(Source(), buildTarget_));
}

void ProjectRoom::RunDirectly(const std::string& command) {
  RunProgram(program_.frame.Handle(), program_.messages, MakeRunRequest(command, ProgramExists), false);
}

LRESULT ProjectRoom::OnEnded(WPARAM w, LPARAM l) {
  runner_.OnEnded(static_cast<DWORD>(w), static_cast<DWORD>(l));
  return 0;
}

LRESULT ProjectRoom::OnTick(WPARAM, LPARAM) {
  runner_.OnTick();
  return 0;
}

void ProjectRoom::OnConfigure() {
  CConfigureProjectDialog(settings_, program_.messages, program_.help).DoModal(program_.frame.Handle());
}

void ProjectRoom::OnSelect() {
  CSelectProjectDialog dialog(program_.help, settings_.Directory(), settings_.RecentProjects());
  if (dialog.DoModal(program_.frame.Handle()) != IDOK) return;
  std::string directory = dialog.Path();
  if (directory.empty() || PrepareDirectory(directory)) switching_.ChangeProject(directory);
}

// Makes the path a full one, and the directory where there is none. False when the user does not want that.
bool ProjectRoom::PrepareDirectory(std::string& directory) const {
  directory = FullPathLower(directory);
  if (IsDirectory(directory)) return true;
  if (FileExists(directory)) throw CFileException(FileCause::kBadPath, directory);
  int answer =
      program_.messages.ShowMessageBox(nullptr, MB_OKCANCEL | MB_ICONQUESTION, kTextCreateFile, {directory});
  if (answer != IDOK) return false;
  MakeDirectoryWithParents(directory);
  return true;
}

CommandState ProjectRoom::HelpState(UINT) const {
  return {program_.documents.ActiveText() != nullptr, false};
}

void ProjectRoom::OnHelp(UINT id) {
  TextControl* text = program_.documents.ActiveText();
  if (!text) return Warn();
  if (id == kHelpOnWord) return help_.ShowForContext(*text);
  help_.Show(*text, id == kHelpSDK ? HelpMode::kSdk : HelpMode::kEnvironment);
}

}  // namespace tarrow
