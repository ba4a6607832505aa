// CDialog: a dialog box from a template, modal or modeless.
//
// A dialog is a template in the resources, a class of its fields, and two tables: its message map and its
// fields (dialog_fields.h). OnOk() stores the fields and closes; a dialog that validates overrides it. In a
// dialog a handler's answer reaches Windows as DialogProc asks for it, so handlers are written as in any
// window.
#pragma once

#include "framework/dialog_fields.h"
#include "framework/wnd.h"

#include <span>

namespace tarrow {

class CDialog : public CWnd {
 public:
  explicit CDialog(WORD templateId) : template_(templateId) {}

  WORD Template() const { return template_; }

  // Runs the dialog until it closes; returns what it was closed with, IDCANCEL when it could not be made.
  int DoModal(HWND owner);

  // Opens the dialog modeless: it takes its keys from the message loop and lives until Close().
  [[nodiscard]] bool CreateModeless(HWND owner);

  // Ends the dialog, either kind.
  void Close(int result);

  HWND Item(int id) const { return ::GetDlgItem(Handle(), id); }
  std::string ItemText(int id) const { return detail::ControlText(Item(id)); }
  void SetItemText(int id, std::string_view text);
  bool ItemChecked(int id) const { return ::IsDlgButtonChecked(Handle(), id) == BST_CHECKED; }
  void CheckItem(int id, bool checked) {
    ::CheckDlgButton(Handle(), id, checked ? BST_CHECKED : BST_UNCHECKED);
  }
  void EnableItem(int id, bool enabled) { ::EnableWindow(Item(id), enabled); }

  // Puts the focus on a control as the Tab key does: the text of an edit control selected.
  void FocusItem(int id);

  void LoadFields();
  void StoreFields();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  virtual std::span<const DialogField> Fields() const { return {}; }

  // The controls exist and show the fields. Returns whether the first control is to get the focus.
  virtual bool OnInitDialog() { return true; }
  virtual void OnOk();
  virtual void OnCancel();

  LRESULT DefaultProc(UINT message, WPARAM w, LPARAM l) override;
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override;

 private:
  static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;

  WORD template_;
  bool modal_ = false;
};

}  // namespace tarrow
