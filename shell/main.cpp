// The program's entry.
#include "framework/unicode.h"
#include "shell/app.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int showCommand) {
  // Libraries are loaded from the system's directories and the program's, never from the one that happens to
  // be current: that one belongs to the file in front.
  ::SetDllDirectoryW(L"");
  tarrow::CTwApp app;
  return app.Run(tarrow::SkipProgramName(tarrow::ToUtf8(::GetCommandLineW())), showCommand);
}
