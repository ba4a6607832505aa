// The commands Find, Find Next, Find Previous, Replace and Replace Next, and the dialog behind two of them.
//
// One find state and at most one dialog serve all windows; a command works on the window in front.
#pragma once

#include "edit/control/text_control.h"
#include "search/find/find_replace_dialog.h"
#include "ui/commands/commands.h"
#include "ui/program/host.h"

#include <functional>

namespace tarrow {

class FindInWindow;

class FindCommands {
 public:
  // `activeText` gives the text control of the edit window in front, or null when there is none.
  FindCommands(Host& host, std::function<TextControl*()> activeText);
  ~FindCommands();
  FindCommands(const FindCommands&) = delete;
  FindCommands& operator=(const FindCommands&) = delete;

  // Runs kSearchFind to kSearchReplaceNext; false when `id` is another command.
  bool Run(UINT id);

  // Whether such a command can act now.
  CommandState State(UINT id) const;

  // The messages kFindReplaceMessage and kCommonDialogHelp of the frame, which owns the dialog.
  void OnNotification(LPARAM l);
  void OnHelp();

  // Closes the dialog, if it is open.
  void CloseDialog();

  const FindState& State() const { return state_; }
  CTwFindReplaceDialog* Dialog() const { return dialog_; }

 private:
  void OpenDialog(bool findOnly);
  void Search(TextControl& control, UINT id);
  void Obey(CTwFindReplaceDialog& dialog, TextControl& control);
  void TakeFields(CTwFindReplaceDialog& dialog);
  void Warn() { host_.Alert(MB_ICONEXCLAMATION); }
  HWND BoxOwner(const TextControl& control) const;

  template <typename Action>
  void Guarded(Action action);

  Host& host_;
  std::function<TextControl*()> activeText_;
  FindState state_;
  CTwFindReplaceDialog* dialog_ = nullptr;  // belongs to its window
};

}  // namespace tarrow
