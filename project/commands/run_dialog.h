// Starting programs: the Run dialog, and what happens when a program cannot be started.
#pragma once

#include "framework/dialog.h"
#include "project/commands/run_request.h"
#include "ui/program/messages.h"

namespace tarrow {

// Starts the program of a request; with `ask`, or when the request is not valid, the user completes it in the
// Run dialog first. A program that cannot be started is reported.
void RunProgram(HWND frame, Messages& messages, RunRequest request, bool ask);

// Whether the system finds a program of that name where it looks for programs.
[[nodiscard]] bool ProgramExists(const std::string& name);

class CRunDialog final : public CDialog {
 public:
  explicit CRunDialog(RunRequest& request);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const DialogField kFields[];

  void OnBrowse();

  RunRequest& request_;
  std::string commandLine_;
  bool minimised_;
};

}  // namespace tarrow
