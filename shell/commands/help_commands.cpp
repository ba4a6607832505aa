#include "shell/commands/help_commands.h"

#include "framework/unicode.h"
#include "shell/commands/tool_dialogs.h"
#include "ui/commands/commands.h"

namespace tarrow {
namespace {

constexpr unsigned kSelectorHelp = 60;

}  // namespace

constinit const MessageMap HelpCommands::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kHelpContents, &HelpCommands::OnContents>,
                     OnCommand<kHelpSearch, &HelpCommands::OnSearch>,
                     OnCommand<kHelpContext, &HelpCommands::OnWindowHelp>,
                     OnCommand<kHelpAbout, &HelpCommands::OnAbout>>();

void HelpCommands::Open(HWND owner, UINT command, ULONG_PTR data) {
  ::WinHelpW(owner ? owner : frame_.Handle(), ToWide(helpFile_).c_str(), command, data);
}

void HelpCommands::ShowHelp(HWND owner, unsigned topic) {
  Open(owner, HELP_CONTEXT, topic);
}

void HelpCommands::Quit() {
  Open(nullptr, HELP_QUIT, 0);
}

void HelpCommands::OnContents() {
  Open(nullptr, HELP_CONTENTS, 0);
}

void HelpCommands::OnSearch() {
  Open(nullptr, HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(L""));
}

void HelpCommands::OnWindowHelp() {
  const CMDIChildWnd* active = frame_.ActiveChild();
  if (CommandState state; selector_.HasFocus())
    ShowHelp(selector_.Handle(), kSelectorHelp);
  else if (active && active->QueryCommand(kHelpOnWord, state))
    active->Post(WM_COMMAND, kHelpOnWord);
  else
    OnContents();
}

void HelpCommands::OnAbout() {
  CAboutDialog().DoModal(frame_.Handle());
}

}  // namespace tarrow
