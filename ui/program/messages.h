// Messages: how a room tells the user something that he must not miss.
//
// Texts are those of the string table, formatted with arguments in UTF-8.
#pragma once

#include "base/exceptions.h"
#include "base/text_format.h"

#include <windows.h>

#include <initializer_list>

namespace tarrow {

class CDialog;
class CMDIChildWnd;

class Messages {
 public:
  // Shows string `id` formatted with `args` under the program's title and returns the button (IDOK ...).
  // Without an owner the frame owns the box.
  virtual int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args = {}) = 0;

  // Runs a dialog whose buttons say what they do, owned by the frame; returns what it was closed with.
  virtual int Ask(CDialog& question) = 0;

  // The warning beep `sound` (MB_ICONSTOP ...); when the user wants visible alerts, the title of the frame
  // flashes too, or that of `window` unless it is maximised.
  virtual void Alert(UINT sound, const CMDIChildWnd* window = nullptr) = 0;

  // Reports a failed file operation: the stop beep, then file and cause.
  virtual void ShowFileError(HWND owner, const CFileException& error) = 0;

  // Exhausted memory: the exclamation beep and the message in the status bar.
  virtual void ReportOutOfMemory() = 0;

 protected:
  ~Messages() = default;
};

}  // namespace tarrow
