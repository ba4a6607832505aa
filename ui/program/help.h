// Help: how a room opens the help book.
#pragma once

#include <windows.h>

namespace tarrow {

class Help {
 public:
  // Opens the help at a topic's number. Without an owner the frame is the owner.
  virtual void ShowHelp(HWND owner, unsigned topic) = 0;

 protected:
  ~Help() = default;
};

}  // namespace tarrow
