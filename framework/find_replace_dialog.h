// CFindReplaceDialog: the system's modeless find and replace dialogs.
//
// The dialog belongs to the system; this class owns what it was opened with, sees its messages first (by
// subclassing it), and tells its notifications, which arrive at the owner window as the registered message
// FindReplaceMessage(), apart. With a template number the replace form is the program's own.
#pragma once

#include "framework/wnd.h"

#include <commdlg.h>

#include <string>
#include <string_view>

namespace tarrow {

// The registered messages "commdlg_FindReplace" and "commdlg_help", for OnRegistered<>.
extern const UINT kFindReplaceMessage;
extern const UINT kCommonDialogHelp;

class CFindReplaceDialog : public CWnd {
 public:
  // Opens the find (`findOnly`) or replace dialog with FR_* flags; false when the system refuses. The owner
  // gets the notifications.
  [[nodiscard]] bool Open(bool findOnly, std::string_view findWhat, std::string_view replaceWith, DWORD flags,
                          HWND owner, WORD templateId = 0);

  // The object of a notification's LPARAM, or null when it belongs to none.
  static CFindReplaceDialog* FromNotification(LPARAM l);

  // What the dialog says now, UTF-8; valid while a notification is handled.
  std::string FindWhat() const;
  std::string ReplaceWith() const;
  bool SearchDown() const { return (data_.Flags & FR_DOWN) != 0; }
  bool MatchCase() const { return (data_.Flags & FR_MATCHCASE) != 0; }
  bool MatchWholeWord() const { return (data_.Flags & FR_WHOLEWORD) != 0; }
  bool IsFindNext() const { return (data_.Flags & FR_FINDNEXT) != 0; }
  bool IsReplace() const { return (data_.Flags & FR_REPLACE) != 0; }
  bool IsReplaceAll() const { return (data_.Flags & FR_REPLACEALL) != 0; }
  bool IsClosing() const { return (data_.Flags & FR_DIALOGTERM) != 0; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  // The dialog's controls exist; it is not shown yet.
  virtual void OnInitDialog() {}

 private:
  static constexpr std::size_t kBuffer = 4096;  // characters; the dialog keeps no more

  static UINT_PTR CALLBACK Hook(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;

  FINDREPLACEW data_{};
  std::wstring findWhat_;
  std::wstring replaceWith_;
};

}  // namespace tarrow
