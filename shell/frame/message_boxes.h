// MessageBoxes: how the program talks to its user in boxes and beeps.
#pragma once

#include "framework/wnd.h"
#include "ui/program/messages.h"
#include "ui/program/status_line.h"
#include "ui/settings/global_settings.h"

#include <exception>

namespace tarrow {

class MessageBoxes final : public Messages {
 public:
  // All of them outlive the object. The frame owns the boxes for which nobody else is named.
  MessageBoxes(const CWnd& frame, const GlobalSettings& settings, StatusLine& status)
      : frame_(frame), settings_(settings), status_(status) {}

  // The session of the system ends, and nobody is there to answer: no box is shown any more.
  void Mute() { muted_ = true; }

  // A string that is missing shows as its number between asterisks; IDCANCEL when memory does not suffice for
  // the text.
  int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args) override;
  int Ask(CDialog& question) override;
  void Alert(UINT sound, const CMDIChildWnd* window) override;
  void ShowFileError(HWND owner, const CFileException& error) override;
  void ReportOutOfMemory() override;

  // What a handler let out. Everything is as it was; the user is told, the program goes on.
  void ReportException(std::exception_ptr exception);

 private:
  const CWnd& frame_;
  const GlobalSettings& settings_;
  StatusLine& status_;
  bool muted_ = false;
};

}  // namespace tarrow
