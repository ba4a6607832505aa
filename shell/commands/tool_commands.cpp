#include "shell/commands/tool_commands.h"

#include "project/commands/run_dialog.h"
#include "shell/commands/tool_dialogs.h"
#include "shell/state/settings.h"
#include "ui/commands/commands.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace tarrow {
namespace {

// The outside programs: the key of the section Settings that names one, and its usual name.
struct ExternalTool {
  CommandId command;
  const char* key;
  const char* program;
};
constexpr ExternalTool kExternalTools[] = {{kToolDialogEdit, "DialogEditor", "dlgedit.exe"},
                                           {kToolImageEdit, "IconEditor", "imagedit.exe"},
                                           {kToolCalculator, "Calculator", "calc.exe"}};

}  // namespace

// Record and Macro do nothing: they are names that old bindings may use.
constinit const MessageMap ToolCommands::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kToolSysMetrics, &ToolCommands::OnSystemMetrics>,
                     OnCommandRange<kToolDialogEdit, kToolCalculator, &ToolCommands::OnProgram>,
                     OnCommand<kToolRun, &ToolCommands::OnRun>,
                     OnCommandRange<kToolRecord, kToolMacro, &ToolCommands::OnNothing>>();

void ToolCommands::OnProgram(UINT id) {
  const ExternalTool* tool = std::ranges::find(kExternalTools, id, &ExternalTool::command);
  std::string program;
  (void)store_.ReadString(kSettingsSection, tool->key, program);
  RunProgram(frame_.Handle(), messages_,
             MakeRunRequest(program.empty() ? tool->program : program, ProgramExists), false);
}

void ToolCommands::OnRun() {
  RunProgram(frame_.Handle(), messages_, {}, true);
}

void ToolCommands::OnSystemMetrics() {
  CSystemMetricsDialog().DoModal(frame_.Handle());
}

}  // namespace tarrow
