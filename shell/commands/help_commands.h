// HelpCommands: the help book and the commands of the Help menu.
#pragma once

#include "framework/command_target.h"
#include "framework/mdi.h"
#include "ui/program/help.h"
#include "ui/selector/window_selector.h"

#include <string>

namespace tarrow {

class HelpCommands final : public CommandTarget, public Help {
 public:
  // `helpFile` is the full path of tarrow.hlp, known before the first use. All outlive the object.
  HelpCommands(CMDIFrameWnd& frame, const CWinSelector& selector, const std::string& helpFile)
      : frame_(frame), selector_(selector), helpFile_(helpFile) {}

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
  void Open(HWND owner, UINT command, ULONG_PTR data);

  CMDIFrameWnd& frame_;
  const CWinSelector& selector_;
  const std::string& helpFile_;
};

}  // namespace tarrow
