#include "print/printing_dialog.h"

#include "base/exceptions.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
CPrintingDialog::CPrintingDialog(std::string document, PrinterName printer)
    : CDialog(IDD_PRINTING), document_(std::move(document)), printer_(std::move(printer)) {}

// The others come back first, or the system would bring another program to the front.
CPrintingDialog::~CPrintingDialog() {
  disabled_.reset();
  if (!Exists()) return;
  bool isInFront = ::GetActiveWindow() == Handle();
  Destroy();
  if (isInFront) ::SetActiveWindow(owner_);
}

void CPrintingDialog::Open(HWND owner) {
  owner_ = owner;
  if (!CreateModeless(owner)) return;
  disabled_.emplace(Handle());
  ::SetActiveWindow(Handle());
}

bool CPrintingDialog::OnInitDialog() {
  SetItemText(IDC_PRINT_DOCUMENT, document_);
  SetItemText(IDC_PRINT_PRINTER, printer_.device);
  SetItemText(IDC_PRINT_PORT, printer_.port);
  return true;
}

void CPrintingDialog::ShowPage(int number) {
  SetItemText(IDC_PRINT_PAGE, FormatTextResource(kTextPrintingPage, {number}));
}

void CPrintingDialog::Dispatch() {
  if (Exists()) DispatchForDialog(Handle());
}

void CPrintingDialog::Poll() {
  Dispatch();
  if (isCancelled_) throw CYieldException();
}

void CPrintingDialog::OnCancel() {
  isCancelled_ = true;
  EnableItem(IDCANCEL, false);
}

}  // namespace tarrow
