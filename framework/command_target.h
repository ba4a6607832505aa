// CommandTarget: whatever handles commands, be it a window or not.
//
// A target answers two questions from a constant table (message_map.h): run this command; can it run now, and
// is it checked. The frame asks its targets in turn, for menus, tool bar and keys alike, so that nobody but
// the target knows that a command is its own. A target that is no window also gets the messages that reach
// the frame and that the frame has no handler for: what a worker thread posts, a modeless dialog sends or the
// system drops there finds its way by the same table.
#pragma once

#include "framework/message_map.h"

#include <windows.h>

namespace tarrow {

class CObject {
 public:
  CObject() = default;
  virtual ~CObject() = default;
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
};

class CommandTarget : public CObject {
 public:
  // Whether command `id` can run now; false when the target does not know the command.
  virtual bool QueryCommand(UINT id, CommandState& state) const;

  // Runs a command (code 0) or handles a control's notification; false when the target does not know it.
  virtual bool RunCommand(UINT id, UINT code, HWND control, LRESULT& result);

  // Handles any other message; false when the target has no handler for it.
  bool HandleMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result);

 protected:
  virtual const MessageMap& GetMessageMap() const = 0;
};

}  // namespace tarrow
