#include "shell/commands/help_commands.h"

#include "framework/file_system.h"
#include "framework/unicode.h"
#include "shell/commands/help_book.h"
#include "shell/commands/tool_dialogs.h"
#include "ui/commands/commands.h"
#include "ui/program/help_topics.h"
#include "ui/program/string_ids.h"

namespace tarrow {

constinit const MessageMap HelpCommands::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kHelpContents, &HelpCommands::OnContents>,
                     OnCommand<kHelpSearch, &HelpCommands::OnSearch>,
                     OnCommand<kHelpContext, &HelpCommands::OnWindowHelp>,
                     OnCommand<kHelpAbout, &HelpCommands::OnAbout>>();

void HelpCommands::Open(HWND owner, HelpRequest request) {
  if (!owner) owner = frame_.Handle();
  if (FileExists(helpFile_) && OpenInViewer(owner, request)) return;
  std::string book = FindHelpBook(helpFile_);
  if (book.empty())
    messages_.ShowMessageBox(owner, MB_ICONEXCLAMATION, kTextNoHelp, {helpFile_});
  else if (!OpenHelpBook(owner, book, request))
    messages_.ShowMessageBox(owner, MB_ICONEXCLAMATION, kTextCannotOpen, {book});
}

bool HelpCommands::OpenInViewer(HWND owner, HelpRequest request) {
  viewerUsed_ = true;
  std::wstring file = ToWide(helpFile_);
  switch (request.kind) {
    case HelpRequest::Kind::kContents:
      return ::WinHelpW(owner, file.c_str(), HELP_CONTENTS, 0);
    case HelpRequest::Kind::kSearch:
      return ::WinHelpW(owner, file.c_str(), HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(L""));
    case HelpRequest::Kind::kTopic:
      break;
  }
  return ::WinHelpW(owner, file.c_str(), HELP_CONTEXT, request.topic);
}

void HelpCommands::ShowHelp(HWND owner, unsigned topic) {
  Open(owner, {HelpRequest::Kind::kTopic, topic});
}

void HelpCommands::Quit() {
  if (viewerUsed_) ::WinHelpW(frame_.Handle(), ToWide(helpFile_).c_str(), HELP_QUIT, 0);
}

void HelpCommands::OnContents() {
  Open(nullptr, {HelpRequest::Kind::kContents});
}

void HelpCommands::OnSearch() {
  Open(nullptr, {HelpRequest::Kind::kSearch});
}

void HelpCommands::OnWindowHelp() {
  CommandState state;
  if (selector_.HasFocus())
    ShowHelp(selector_.Handle(), kSelectorTopic);
  else if (frame_.QueryCommand(kHelpOnWord, state) && state.enabled)
    frame_.Post(WM_COMMAND, kHelpOnWord);
  else
    OnContents();
}

void HelpCommands::OnAbout() {
  CAboutDialog().DoModal(frame_.Handle());
}

}  // namespace tarrow
