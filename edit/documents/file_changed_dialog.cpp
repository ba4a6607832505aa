#include "edit/documents/file_changed_dialog.h"

namespace tarrow {

constinit const MessageMap CFileChangedDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnCommandRange<IDC_RELOAD, IDC_SAVE_AS, &CFileChangedDialog::OnButton>>();

// Cancel is the default button of the dialog that has it, and gets the focus, too.
bool CFileChangedDialog::OnInitDialog() {
  SetItemText(IDC_CHANGED_PATH, path_);
  if (Template() == IDD_FILE_CHANGED) return true;
  FocusItem(IDCANCEL);
  return false;
}

}  // namespace tarrow
