// ToolCommands: the outside programs of the Tools menu, and the small displays there.
#pragma once

#include "framework/command_target.h"
#include "framework/mdi.h"
#include "shell/state/profile_store.h"
#include "ui/program/messages.h"

namespace tarrow {

class ToolCommands final : public CommandTarget {
 public:
  // All of them outlive the object.
  ToolCommands(CMDIFrameWnd& frame, Messages& messages, const CProfileStore& store)
      : frame_(frame), messages_(messages), store_(store) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnProgram(UINT id);
  void OnRun();
  void OnSystemMetrics();
  void OnNothing() {}

  CMDIFrameWnd& frame_;
  Messages& messages_;
  const CProfileStore& store_;
};

}  // namespace tarrow
