#include "edit/documents/goto_line_dialog.h"

#include "resources/resource.h"

namespace tarrow {

CGotoLineDialog::CGotoLineDialog(int number) : CDialog(IDD_GOTO_LINE), number_(number) {}

std::span<const DialogField> CGotoLineDialog::Fields() const {
  static constexpr DialogField kFields[] = {NumberField<&CGotoLineDialog::number_>(IDC_GOTO)};
  return kFields;
}

}  // namespace tarrow
