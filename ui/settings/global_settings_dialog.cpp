#include "ui/settings/global_settings_dialog.h"

#include "framework/common_dialogs.h"
#include "framework/font_dialog.h"
#include "framework/handle.h"
#include "resources/resource.h"
#include "ui/program/help_topics.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"
#include "ui/settings/key_bindings_dialog.h"

namespace tarrow {

namespace {

static_assert(IDC_BLOCK_INDENT - IDC_SAVE_SETTINGS == 13,
              "the boxes are numbered in the order of their table");

int BoxControl(std::size_t box) {
  return IDC_SAVE_SETTINGS + static_cast<int>(box);
}

// The printer that the system prints to unless told otherwise; none when there is no printer.
MemoryDcHandle DefaultPrinter() {
  PRINTDLGW print{};
  print.lStructSize = sizeof print;
  print.Flags = PD_RETURNDEFAULT | PD_RETURNDC;
  if (!kPrintDlg(&print)) return {};
  ::GlobalFree(print.hDevMode);
  ::GlobalFree(print.hDevNames);
  return MemoryDcHandle(print.hDC);
}

}  // namespace

constinit const MessageMap CGlobalSettingsDialog::kMessageMap = MessageMap::Make<
    &CDialog::kMessageMap,
    OnCommandRange<IDC_MAINTAIN_INDENTATION, IDC_BLOCK_INDENT, &CGlobalSettingsDialog::OnIndentationBox>,
    OnCommand<IDC_SCREEN_FONT, &CGlobalSettingsDialog::OnScreenFont>,
    OnCommand<IDC_PRINTER_FONT, &CGlobalSettingsDialog::OnPrinterFont>,
    OnCommand<IDC_PAGE_SETUP, &CGlobalSettingsDialog::OnPageSetup>,
    OnCommand<IDC_KEY_BINDINGS, &CGlobalSettingsDialog::OnKeyBindings>,
    OnCommand<IDC_HELP_BUTTON, &CGlobalSettingsDialog::OnHelp>>();

constinit const DialogField CGlobalSettingsDialog::kFields[] = {
    NumberField<&CGlobalSettingsDialog::tabSize_>(IDC_TAB_SIZE, 3),
    NumberField<&CGlobalSettingsDialog::shiftWidth_>(IDC_SHIFT_WIDTH, 3)};

CGlobalSettingsDialog::CGlobalSettingsDialog(Messages& messages, Help& help, GlobalSettingsChoice& choice,
                                             std::span<const KeyBinding> live,
                                             std::function<bool(HWND)> pageSetup)
    : CDialog(IDD_GLOBAL_SETTINGS),
      messages_(messages),
      help_(help),
      choice_(choice),
      live_(live),
      pageSetup_(std::move(pageSetup)),
      tabSize_(choice.settings.tabSize),
      shiftWidth_(choice.settings.shiftWidth) {}

std::span<const DialogField> CGlobalSettingsDialog::Fields() const {
  return kFields;
}

bool CGlobalSettingsDialog::OnInitDialog() {
  for (std::size_t i = 0; i < SettingsBoxes().size(); ++i)
    CheckItem(BoxControl(i), IsBoxChecked(choice_.settings, SettingsBoxes()[i]));
  EnableItem(IDC_PAGE_SETUP, pageSetup_ != nullptr);
  return true;
}

// Block indent needs the indentation to be maintained: the boxes follow each other as the commands do.
void CGlobalSettingsDialog::OnIndentationBox(UINT id) {
  if (id == IDC_BLOCK_INDENT && ItemChecked(IDC_BLOCK_INDENT)) CheckItem(IDC_MAINTAIN_INDENTATION, true);
  if (id == IDC_MAINTAIN_INDENTATION && !ItemChecked(IDC_MAINTAIN_INDENTATION))
    CheckItem(IDC_BLOCK_INDENT, false);
}

void CGlobalSettingsDialog::OnScreenFont() {
  if (RunFontDialog({Handle(), nullptr}, choice_.screenFont)) choice_.screenFontChanged = true;
}

void CGlobalSettingsDialog::OnPrinterFont() {
  MemoryDcHandle printer = DefaultPrinter();
  if (!printer) {
    messages_.ShowMessageBox(Handle(), MB_OK | MB_ICONEXCLAMATION, kTextNoPrinter, {"Default", "?", "?"});
    return;
  }
  LOGFONTW font = PrinterLogFont(choice_.printerFont, ::GetDeviceCaps(printer.Get(), LOGPIXELSY));
  if (!RunFontDialog({Handle(), printer.Get()}, font)) return;
  choice_.printerFont = FromLogFont(font);
  choice_.printerFontChanged = true;
}

void CGlobalSettingsDialog::OnPageSetup() {
  if (pageSetup_(Handle())) choice_.pageSetupChanged = true;
}

// Once the bindings have been accepted, a later Cancel leaves them as they are.
void CGlobalSettingsDialog::OnKeyBindings() {
  CKeyBindingsDialog dialog(messages_, help_, choice_.keys, live_);
  if (dialog.DoModal(Handle()) == IDOK)
    choice_.keysChanged = true;
  else if (!choice_.keysChanged)
    choice_.keys.Clear();
}

void CGlobalSettingsDialog::OnHelp() {
  help_.ShowHelp(Handle(), kGlobalSettingsTopic);
}

void CGlobalSettingsDialog::Refuse(int text, int field) {
  messages_.ShowMessageBox(Handle(), MB_OK | MB_ICONEXCLAMATION, text);
  FocusItem(field);
}

void CGlobalSettingsDialog::OnOk() {
  StoreFields();
  switch (CheckSpacing(tabSize_, shiftWidth_)) {
    case SpacingProblem::kTabTooSmall:
      return Refuse(kTextTabTooSmall, IDC_TAB_SIZE);
    case SpacingProblem::kIndentTooSmall:
      return Refuse(kTextIndentTooSmall, IDC_SHIFT_WIDTH);
    case SpacingProblem::kNone:
      break;
  }
  StoreSpacing(choice_.settings, tabSize_, shiftWidth_);
  for (std::size_t i = 0; i < SettingsBoxes().size(); ++i)
    CheckBox(choice_.settings, SettingsBoxes()[i], ItemChecked(BoxControl(i)));
  Close(IDOK);
}

}  // namespace tarrow
