#include "project/commands/build_dialog.h"

#include "framework/directories.h"
#include "resources/resource.h"

namespace tarrow {

const DialogField CBuildDialog::kFields[] = {TextField<&CBuildDialog::text_>(IDC_BUILD_TARGET)};

CBuildDialog::CBuildDialog(std::string& target) : CDialog(IDD_BUILD_TARGET), target_(target), text_(target) {}

std::span<const DialogField> CBuildDialog::Fields() const {
  return kFields;
}

bool CBuildDialog::OnInitDialog() {
  SetItemText(IDC_WORKING_DIRECTORY, WorkingDirectory());
  return true;
}

void CBuildDialog::OnOk() {
  StoreFields();
  target_ = text_;
  Close(IDOK);
}

}  // namespace tarrow
