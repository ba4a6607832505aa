#include "viewer/views/goto_address_dialog.h"

#include "resources/resource.h"
#include "viewer/views/address_text.h"

namespace tarrow {

CGotoAddressDialog::CGotoAddressDialog(Messages& messages, std::uint32_t address)
    : CDialog(IDD_GOTO_ADDRESS), messages_(messages), text_(FormatAddress(address)), address_(address) {}

std::span<const DialogField> CGotoAddressDialog::Fields() const {
  static constexpr DialogField kFields[] = {TextField<&CGotoAddressDialog::text_>(IDC_GOTO, kAddressDigits)};
  return kFields;
}

// The first character that is no digit is selected, to be typed over.
void CGotoAddressDialog::OnOk() {
  StoreFields();
  AddressText parsed = ParseAddress(text_);
  if (!parsed.IsRight()) {
    FocusItem(IDC_GOTO);
    ::SendMessageW(Item(IDC_GOTO), EM_SETSEL, parsed.wrongAt, static_cast<LPARAM>(parsed.wrongAt + 1));
    return messages_.Alert(MB_ICONEXCLAMATION);
  }
  address_ = parsed.address;
  Close(IDOK);
}

}  // namespace tarrow
