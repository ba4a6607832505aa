#include "shell/message_box.h"

#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/program/string_ids.h"

#include <new>

namespace tarrow {

int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) {
  try {
    std::wstring text = ToWide(FormatTextResource(id, args));
    return ::MessageBoxW(owner, text.c_str(), ToWide(LoadText(kTextTitle)).c_str(), style);
  } catch (const std::bad_alloc&) {
    return IDCANCEL;
  }
}

std::string FileCauseText(FileCause cause) {
  return LoadText(kTextFirstFileCause + static_cast<int>(cause));
}

// FlashWindowEx counts a change of the title bar, so two flashes are four of them.
void Beep(UINT sound, HWND flash) {
  ::MessageBeep(sound);
  if (!flash) return;
  FLASHWINFO info{sizeof info, flash, FLASHW_CAPTION, 4, 100};
  ::FlashWindowEx(&info);
}

}  // namespace tarrow
