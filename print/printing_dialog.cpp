#include "print/printing_dialog.h"

#include "base/exceptions.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

struct MessageRange {
  UINT first, last;
};

// Input for other windows, as a modeless dialog may stay open. Left in the queue it would reach them after
// the job.
constexpr MessageRange kInput[] = {
    {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK}, {WM_KEYFIRST, WM_KEYLAST}, {WM_MOUSEFIRST, WM_MOUSELAST}};

}  // namespace

CPrintingDialog::CPrintingDialog(std::string document, PrinterName printer)
    : CDialog(IDD_PRINTING), document_(std::move(document)), printer_(std::move(printer)) {}

// The owner is enabled before the dialog goes, or another program's window would come to the front.
CPrintingDialog::~CPrintingDialog() {
  if (wasEnabled_) ::EnableWindow(owner_, TRUE);
  if (Exists()) Close(IDCANCEL);
}

void CPrintingDialog::Open(HWND owner) {
  if (!CreateModeless(owner)) return;
  owner_ = owner;
  wasEnabled_ = !::EnableWindow(owner, FALSE);
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
  MSG message{};
  while (Exists() && ::PeekMessageW(&message, Handle(), 0, 0, PM_REMOVE)) {
    if (::IsDialogMessageW(Handle(), &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  while (::PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE)) ::DispatchMessageW(&message);
  for (const MessageRange& range : kInput)
    while (::PeekMessageW(&message, nullptr, range.first, range.last, PM_REMOVE)) {
    }
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
