#include "shell/commands/settings_commands.h"

#include "framework/regional.h"
#include "print/page_setup_dialog.h"
#include "ui/commands/commands.h"
#include "ui/settings/font_choice.h"
#include "ui/settings/font_value.h"
#include "ui/settings/global_settings_dialog.h"
#include "ui/settings/global_settings_form.h"

#include <utility>

namespace tarrow {
namespace {

constexpr const char* kScreenFontKey = "ScreenFont";
constexpr const char* kPrinterFontKey = "PrinterFont";

}  // namespace

constinit const MessageMap SettingsCommands::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kSetGlobal, &SettingsCommands::OnGlobalSettings>>();

void SettingsCommands::OnGlobalSettings() {
  GlobalSettings& settings = state_.settings.global;
  GlobalSettingsChoice choice;
  choice.settings = settings;
  choice.screenFont = state_.screenFont;
  choice.printerFont = ParseFont(stored_.Setting(kPrinterFontKey).value_or(""));
  PageSetup page = LoadPageSetup(stored_);
  auto editPage = [&](HWND owner) {
    LengthFormat lengths{UsesMetricSystem(), DecimalSeparator()};
    return CPageSetupDialog(messages_, help_, lengths, page).DoModal(owner) == IDOK;
  };
  CGlobalSettingsDialog dialog(messages_, help_, choice, keys_.Bindings(), editPage);
  if (dialog.DoModal(frame_.Handle()) != IDOK) return;

  GlobalSettings before = std::exchange(settings, choice.settings);
  for (SettingsEffect effect : EffectsOfChange(before, settings))
    frame_.ApplyEffect(effect, !before.Has(kNoProject));
  if (choice.screenFontChanged) SetScreenFont(choice.screenFont);
  if (choice.printerFontChanged) stored_.StoreSetting(kPrinterFontKey, FormatFont(choice.printerFont));
  if (choice.pageSetupChanged) StorePageSetup(stored_, page);
  if (choice.screenFontChanged || before.tabSize != settings.tabSize)
    windows_.ApplySettings(choice.screenFontChanged);
  if (choice.keysChanged) keys_.Apply(choice.keys);
}

void SettingsCommands::SetScreenFont(const LOGFONTW& font) {
  state_.screenFont = font;
  FontChoice& stored = state_.settings.global.screenFont;
  stored = FromLogFont(font);
  stored_.StoreSetting(kScreenFontKey, FormatFont(stored));
}

}  // namespace tarrow
