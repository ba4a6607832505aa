#include "shell/commands/settings_commands.h"

#include "ui/commands/commands.h"
#include "ui/settings/font_choice.h"
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
  choice.printerFont = PrinterFont();
  if (CGlobalSettingsDialog(messages_, help_, choice, keys_.Bindings()).DoModal(frame_.Handle()) != IDOK)
    return;

  GlobalSettings before = std::exchange(settings, choice.settings);
  for (SettingsEffect effect : EffectsOfChange(before, settings))
    frame_.ApplyEffect(effect, !before.Has(kNoProject));
  if (choice.screenFontChanged) SetScreenFont(choice.screenFont);
  if (choice.printerFontChanged)
    state_.store.WriteString(kSettingsSection, kPrinterFontKey, FormatFont(FromLogFont(choice.printerFont)));
  if (choice.screenFontChanged || before.tabSize != settings.tabSize)
    windows_.ApplySettings(choice.screenFontChanged);
  if (choice.keysChanged) keys_.Apply(choice.keys);
}

void SettingsCommands::SetScreenFont(const LOGFONTW& font) {
  state_.screenFont = font;
  FontChoice& stored = state_.settings.global.screenFont;
  stored = FromLogFont(font);
  state_.store.WriteString(kSettingsSection, kScreenFontKey, FormatFont(stored));
}

LOGFONTW SettingsCommands::PrinterFont() const {
  std::string font;
  (void)state_.store.ReadString(kSettingsSection, kPrinterFontKey, font);
  return ToLogFont(ParseFont(font));
}

}  // namespace tarrow
