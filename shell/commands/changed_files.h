// ChangedFiles: watches for what other programs do to the files of the edit windows.
//
// The file of the window in front is looked at when the window, or the program, comes to the front. What the
// look has found is taken up when the program is idle: then no dialog, menu or command is under way that a
// question could break into.
#pragma once

#include "framework/command_target.h"
#include "framework/mdi.h"
#include "shell/commands/file_looker.h"

namespace tarrow {

class ChangedFiles final : public CommandTarget {
 public:
  // The frame outlives the object.
  explicit ChangedFiles(CMDIFrameWnd& frame) : frame_(frame) {}

  // The queue of messages is empty, in the program's own loop.
  void OnIdle();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  LRESULT OnInFront(WPARAM, LPARAM);
  LRESULT OnFileLooked(WPARAM, LPARAM) { return 0; }  // that it came makes the program idle again

  CMDIFrameWnd& frame_;
  FileLooker looker_;
};

}  // namespace tarrow
