// Ending: how the program comes to its end, by command, by the frame's close box, or with the session of the
// system.
#pragma once

#include "framework/command_target.h"
#include "shell/commands/document_windows.h"
#include "shell/commands/help_commands.h"
#include "shell/commands/recovery.h"
#include "shell/commands/session_keeper.h"
#include "shell/frame/bars.h"
#include "shell/frame/message_boxes.h"

namespace tarrow {

class Ending final : public CommandTarget {
 public:
  // All of them outlive the object.
  Ending(CMDIFrameWnd& frame, DocumentWindows& windows, CWinSelector& selector, SessionKeeper& session,
         Recovery& recovery, Bars& bars, HelpCommands& help, MessageBoxes& messages)
      : frame_(frame),
        windows_(windows),
        selector_(selector),
        session_(session),
        recovery_(recovery),
        bars_(bars),
        help_(help),
        messages_(messages) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnExit() { frame_.Post(WM_CLOSE); }
  bool OnQueryEndSession() { return wasAsked_ = windows_.QueryCloseAll(); }
  void OnEndSession(bool ending);
  void OnClose();

  CMDIFrameWnd& frame_;
  DocumentWindows& windows_;
  CWinSelector& selector_;
  SessionKeeper& session_;
  Recovery& recovery_;
  Bars& bars_;
  HelpCommands& help_;
  MessageBoxes& messages_;
  bool wasAsked_ = false;  // about every text, since the session of the system has begun to end
};

}  // namespace tarrow
