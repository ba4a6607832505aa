// The frame's programs, help and small dialogs.
#include "framework/unicode.h"
#include "project/run_dialog.h"
#include "shell/frame.h"
#include "shell/tool_dialogs.h"
#include "ui/commands/commands.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr unsigned kSelectorHelp = 60;

// The outside programs of the Tools menu: the key of the section Settings that names one, and its usual name.
struct ExternalTool {
  CommandId command;
  const char* key;
  const char* program;
};
constexpr ExternalTool kExternalTools[] = {{kToolDialogEdit, "DialogEditor", "dlgedit.exe"},
                                           {kToolImageEdit, "IconEditor", "imagedit.exe"},
                                           {kToolCalculator, "Calculator", "calc.exe"}};

}  // namespace

void CTwFrame::OnExternalTool(UINT id) {
  const ExternalTool* tool = std::find_if(std::begin(kExternalTools), std::end(kExternalTools),
                                          [id](const ExternalTool& t) { return t.command == id; });
  std::string program;
  (void)program_.store.ReadString(kSettingsSection, tool->key, program);
  RunProgram(*this, MakeRunRequest(program.empty() ? tool->program : program, ProgramExists), false);
}

void CTwFrame::OnRun() {
  RunProgram(*this, {}, true);
}

void CTwFrame::OnHelpContents() {
  ::WinHelpW(Handle(), ToWide(program_.helpFile).c_str(), HELP_CONTENTS, 0);
}

void CTwFrame::OnHelpSearch() {
  ::WinHelpW(Handle(), ToWide(program_.helpFile).c_str(), HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(L""));
}

void CTwFrame::OnWindowHelp() {
  const CMDIChildWnd* active = ActiveChild();
  if (CommandState state; selector_.HasFocus())
    ShowHelp(selector_.Handle(), kSelectorHelp);
  else if (active && active->QueryCommand(kHelpOnWord, state))
    active->Post(WM_COMMAND, kHelpOnWord);
  else
    OnHelpContents();
}

void CTwFrame::OnAbout() {
  CAboutDialog().DoModal(Handle());
}

void CTwFrame::OnSystemMetrics() {
  CSystemMetricsDialog().DoModal(Handle());
}

}  // namespace tarrow
