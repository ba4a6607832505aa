// HelpCommands: the help and the commands of the Help menu.
//
// A help file beside the program goes to the help viewer of the system. Where there is none, or no viewer,
// the help book opens in the browser; where that is missing too, a message says so.
#pragma once

#include "framework/command_target.h"
#include "framework/mdi.h"
#include "shell/commands/help_page.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/selector/window_selector.h"

#include <string>

namespace tarrow {

class HelpCommands final : public CommandTarget, public Help {
 public:
  // `helpFile` is the full path of tarrow.hlp, known before the first use. All outlive the object.
  HelpCommands(CMDIFrameWnd& frame, Messages& messages, const CWinSelector& selector,
               const std::string& helpFile)
      : frame_(frame), messages_(messages), selector_(selector), helpFile_(helpFile) {}

  void ShowHelp(HWND owner, unsigned topic) override;

  // The program ends: its help is not needed any more.
  void Quit();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnContents();
  void OnSearch();
  void OnWindowHelp();
  void OnAbout();
  void Open(HWND owner, HelpRequest request);
  bool OpenInViewer(HWND owner, HelpRequest request);

  CMDIFrameWnd& frame_;
  Messages& messages_;
  const CWinSelector& selector_;
  const std::string& helpFile_;
  bool viewerUsed_ = false;
};

}  // namespace tarrow
