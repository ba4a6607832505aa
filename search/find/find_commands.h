// The room of Find, Find Next, Find Previous, Replace and Replace Next, and of the dialog behind two of them.
//
// One find state and at most one dialog serve all windows; a command works on the text in front, or on the
// file that is viewed there, in which nothing can be replaced. The dialog belongs to the frame, so its
// messages come to this target from there.
#pragma once

#include "edit/documents/documents.h"
#include "framework/command_target.h"
#include "framework/mdi.h"
#include "search/find/find_replace_dialog.h"
#include "ui/commands/commands.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"

namespace tarrow {

class FindInView;
class FindInWindow;
class SearchableFile;

class FindCommands final : public CommandTarget {
 public:
  FindCommands(CMDIFrameWnd& frame, Documents& documents, Messages& messages, StatusLine& status,
               Waiting& waiting, Help& help);
  ~FindCommands() override;

  // Closes the dialog, if it is open.
  void CloseDialog();

  const FindState& State() const { return state_; }
  CTwFindReplaceDialog* Dialog() const { return dialog_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnFind(UINT id);
  CommandState StateOf(UINT id) const;
  LRESULT OnNotification(WPARAM w, LPARAM l);
  LRESULT OnDialogHelp(WPARAM w, LPARAM l);
  LRESULT OnNoDocument(WPARAM w, LPARAM l);

  // What is in front; at most one of them is there.
  TextControl* Text() const { return documents_.ActiveText(); }
  SearchableFile* File() const;
  bool CanRun(bool changes) const;

  void OpenDialog(bool findOnly);
  void Search(UINT id);
  void FindInFile(SearchableFile& file, bool takesSelection);
  void ForgetDialog();
  void ObeyDialog();
  void Obey(CTwFindReplaceDialog& dialog);
  void TakeFields(CTwFindReplaceDialog& dialog);
  void Report(std::size_t replacements);
  void MoveDialogAside(const FindInWindow& window, const TextControl& control);
  void Warn() { messages_.Alert(MB_ICONEXCLAMATION); }
  HWND BoxOwner() const;

  template <typename Action>
  void Guarded(Action action);

  FindInWindow In(TextControl& control, HWND boxOwner);
  FindInView In(SearchableFile& file, HWND boxOwner);

  CMDIFrameWnd& frame_;
  Documents& documents_;
  Messages& messages_;
  StatusLine& status_;
  Waiting& waiting_;
  Help& help_;
  FindState state_;
  CTwFindReplaceDialog* dialog_ = nullptr;  // belongs to its window
};

}  // namespace tarrow
