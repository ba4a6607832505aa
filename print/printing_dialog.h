// The dialog that stands while a job is printed: what is printed where, the page, and Cancel.
#pragma once

#include "base/progress.h"
#include "framework/busy_dialog.h"
#include "framework/dialog.h"
#include "print/printer_name.h"

#include <optional>
#include <string>

namespace tarrow {

class CPrintingDialog final : public CDialog, public Progress {
 public:
  CPrintingDialog(std::string document, PrinterName printer);
  ~CPrintingDialog() override;

  // Shows the dialog; where it cannot be made the job goes on without it.
  void Open(HWND owner);

  void ShowPage(int number);

  // Lets the user act.
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
  std::optional<OtherWindowsDisabled> disabled_;
  bool isCancelled_ = false;
};

}  // namespace tarrow
