#include "print/page_setup_dialog.h"

#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

constexpr unsigned kHelpTopic = 45;

}  // namespace

constinit const MessageMap CPageSetupDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDC_HELP_BUTTON, &CPageSetupDialog::OnHelp>>();

constinit const DialogField CPageSetupDialog::kFields[] = {
    TextField<&CPageSetupDialog::header_>(IDC_PAGE_HEADER),
    TextField<&CPageSetupDialog::footer_>(IDC_PAGE_FOOTER),
    TextField<&CPageSetupDialog::left_>(IDC_MARGIN_LEFT),
    TextField<&CPageSetupDialog::right_>(IDC_MARGIN_RIGHT),
    TextField<&CPageSetupDialog::top_>(IDC_MARGIN_TOP),
    TextField<&CPageSetupDialog::bottom_>(IDC_MARGIN_BOTTOM)};

CPageSetupDialog::CPageSetupDialog(Messages& messages, Help& help, const LengthFormat& lengths,
                                   PageSetup& setup)
    : CDialog(IDD_PAGE_SETUP),
      messages_(messages),
      help_(help),
      lengths_(lengths),
      setup_(setup),
      header_(setup.header),
      footer_(setup.footer),
      left_(lengths.Text(setup.margins.left)),
      right_(lengths.Text(setup.margins.right)),
      top_(lengths.Text(setup.margins.top)),
      bottom_(lengths.Text(setup.margins.bottom)) {}

std::span<const DialogField> CPageSetupDialog::Fields() const {
  return kFields;
}

bool CPageSetupDialog::OnInitDialog() {
  SetItemText(IDC_MARGINS, LoadText(lengths_.metric ? kTextMarginsMetric : kTextMarginsInches));
  return true;
}

void CPageSetupDialog::OnOk() {
  StoreFields();
  PageSetup chosen{{}, header_, footer_};
  struct Field {
    int id;
    const std::string& text;
    int& margin;
  };
  const Field fields[] = {{IDC_MARGIN_LEFT, left_, chosen.margins.left},
                          {IDC_MARGIN_RIGHT, right_, chosen.margins.right},
                          {IDC_MARGIN_TOP, top_, chosen.margins.top},
                          {IDC_MARGIN_BOTTOM, bottom_, chosen.margins.bottom}};
  for (const Field& field : fields) {
    std::optional<int> margin = lengths_.Read(field.text);
    if (!margin) {
      messages_.ShowMessageBox(Handle(), MB_OK | MB_ICONSTOP, kTextBadMargin);
      return FocusItem(field.id);
    }
    field.margin = *margin;
  }
  setup_ = chosen;
  Close(IDOK);
}

void CPageSetupDialog::OnHelp() {
  help_.ShowHelp(Handle(), kHelpTopic);
}

}  // namespace tarrow
