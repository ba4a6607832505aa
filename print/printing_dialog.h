// The dialog that stands while a job is printed: what is printed where, the page, and Cancel.
//
// While it stands its owner is disabled, and only what concerns the dialog and the painting of windows is
// dispatched: nothing may change the text that is being read.
#pragma once

#include "base/progress.h"
#include "framework/dialog.h"
#include "print/printer_name.h"

#include <string>

namespace tarrow {

class CPrintingDialog final : public CDialog, public Progress {
 public:
  CPrintingDialog(std::string document, PrinterName printer);
  ~CPrintingDialog() override;

  // Shows the dialog; without memory for it the job goes on all the same.
  void Open(HWND owner);

  void ShowPage(int number);

  // Deals with the messages that have come; input that is not for the dialog is dropped.
  void Dispatch();
  bool IsCancelled() const { return isCancelled_; }

  // Progress: throws CYieldException once the user has cancelled.
  void Poll() override;

 protected:
  bool OnInitDialog() override;
  void OnOk() override { OnCancel(); }
  void OnCancel() override;

 private:
  std::string document_;
  PrinterName printer_;
  HWND owner_ = nullptr;
  bool wasEnabled_ = false;
  bool isCancelled_ = false;
};

}  // namespace tarrow
