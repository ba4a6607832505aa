// What the program knows for the whole of its run: its settings, its store, its places.
//
// CTwApp fills it at the start; the frame works with it.
#pragma once

#include "shell/state/settings.h"

#include <windows.h>

#include <string>

namespace tarrow {

struct ProgramState {
  SettingsFiles& files;
  CProfileStore store;
  ProgramSettings settings{};
  std::string homeDirectory{};  // with a backslash at its end
  std::string initFile{};       // the full path of tarrow.ini
  std::string helpFile{};       // the full path of tarrow.hlp
  LOGFONTW screenFont{};
};

}  // namespace tarrow
