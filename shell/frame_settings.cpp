// The frame's settings: the bars, the keys, and what follows when the user changes them.
#include "edit/documents/file_edit.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "project/options.h"
#include "shell/frame.h"
#include "ui/commands/key_bindings.h"
#include "ui/program/string_ids.h"
#include "ui/settings/font_choice.h"
#include "ui/settings/global_settings_dialog.h"
#include "ui/settings/global_settings_form.h"

#include <utility>

namespace tarrow {
namespace {

constexpr const char* kScreenFontKey = "ScreenFont";
constexpr const char* kPrinterFontKey = "PrinterFont";

}  // namespace

void CTwFrame::CreateToolBar(bool withProject) {
  auto query = [this](UINT id, CommandState& state) { return QueryCommand(id, state); };
  if (!toolBar_.CreateBar(Handle(), withProject, query)) ReportOutOfMemory();
}

void CTwFrame::CreateStatusBar() {
  if (!statusBar_.CreateBar(Handle())) return;
  statusBar_.SetAutoSave(Settings().Has(kSaveWithoutAsking));
  statusBar_.SwitchClock(!Settings().Has(kNoClock));
  if (auto* child = dynamic_cast<CTwChild*>(ActiveChild())) child->PublishState();
}

void CTwFrame::LoadKeyBindings() {
  std::vector<KeyBindingEntry> entries;
  for (const std::string& key : program_.store.Keys(kKeyBindingsSection)) {
    std::string value;
    if (program_.store.ReadString(kKeyBindingsSection, key, value)) entries.push_back({key, value});
  }
  KeyBindingTable table;
  table.Load(DefaultKeyBindings());
  for (const KeyTextChange& change : tarrow::LoadKeyBindings(entries, table))
    menus_.SetKeyText(change.command, change.keyText);
  keys_.assign(table.Entries().begin(), table.Entries().end());
}

// The flags of a binding and those of the platform are the same numbers.
static_assert(kShiftKey == FSHIFT && kControlKey == FCONTROL && kAltKey == FALT);

UINT CTwFrame::CommandOfKey(UINT key, BYTE modifiers) const {
  KeyStroke stroke{static_cast<std::uint8_t>(kVirtualKey | modifiers), static_cast<std::uint16_t>(key)};
  return CommandForKey(keys_, stroke);
}

std::string CTwFrame::FileFilter() const {
  int environment = program_.settings.project.environment;
  std::string filter;
  if (!program_.store.ReadString(kFirstOptionSection + environment, OptionKey(kOptionFileFilter), filter))
    filter = OptionPreset(kOptionFileFilter, environment);
  return filter.empty() ? LoadText(kTextAllFilesFilter) : filter;
}

void CTwFrame::OnIdle() {
  if (toolBar_.Exists()) toolBar_.UpdateButtons();
}

void CTwFrame::OnGlobalSettings() {
  GlobalSettingsChoice choice;
  choice.settings = Settings();
  choice.screenFont = program_.screenFont;
  choice.printerFont = PrinterFont();
  if (CGlobalSettingsDialog(*this, choice, keys_).DoModal(Handle()) != IDOK) return;

  GlobalSettings before = std::exchange(Settings(), choice.settings);
  for (SettingsEffect effect : EffectsOfChange(before, choice.settings)) ApplyEffect(effect, before);
  if (choice.screenFontChanged) SetScreenFont(choice.screenFont);
  if (choice.printerFontChanged)
    program_.store.WriteString(kSettingsSection, kPrinterFontKey,
                               FormatFont(FromLogFont(choice.printerFont)));
  if (choice.screenFontChanged || before.tabSize != choice.settings.tabSize)
    ApplyToWindows(choice.screenFontChanged);
  if (choice.keysChanged) ApplyKeyBindings(choice.keys);
}

void CTwFrame::ApplyEffect(SettingsEffect effect, const GlobalSettings& before) {
  const GlobalSettings& settings = Settings();
  bool project = !settings.Has(kNoProject);
  switch (effect) {
    case SettingsEffect::kRebuildToolBar:
      toolBar_.Destroy();
      if (!settings.Has(kNoToolBar)) CreateToolBar(!before.Has(kNoProject));
      break;
    case SettingsEffect::kShowStatusBar:
      CreateStatusBar();
      break;
    case SettingsEffect::kHideStatusBar:
      statusBar_.Destroy();
      break;
    case SettingsEffect::kStartClock:
      statusBar_.SwitchClock(true);
      break;
    case SettingsEffect::kStopClock:
      statusBar_.SwitchClock(false);
      break;
    case SettingsEffect::kUpdateProjectMenu:
      menus_.EnableProject(*this, project);
      break;
    case SettingsEffect::kUpdateProjectButtons:
      toolBar_.ShowProjectButtons(project);
      break;
    case SettingsEffect::kUpdateAutoSave:
      statusBar_.SetAutoSave(settings.Has(kSaveWithoutAsking));
      break;
  }
  Layout();
}

void CTwFrame::SetScreenFont(const LOGFONTW& font) {
  program_.screenFont = font;
  Settings().screenFont = FromLogFont(font);
  program_.store.WriteString(kSettingsSection, kScreenFontKey, FormatFont(Settings().screenFont));
}

// The edit windows that are open take on the new tab size, and the new screen font if there is one.
void CTwFrame::ApplyToWindows(bool withFont) {
  ForEachChild([&](CMDIChildWnd& child) {
    if (auto* edit = dynamic_cast<CTwFileEdit*>(&child))
      edit->ApplySettings(withFont ? &program_.screenFont : nullptr);
    return true;
  });
}

void CTwFrame::ApplyKeyBindings(KeyBindingTable& keys) {
  keys_.assign(keys.Entries().begin(), keys.Entries().end());
  while (auto change = keys.NextChange()) {
    KeyBindingUpdate update = UpdateFor(*change);
    menus_.SetKeyText(update.menu.command, update.menu.keyText);
    program_.store.WriteString(kKeyBindingsSection, update.entry.name, update.entry.value);
  }
}

LOGFONTW CTwFrame::PrinterFont() const {
  std::string font;
  (void)program_.store.ReadString(kSettingsSection, kPrinterFontKey, font);
  return ToLogFont(ParseFont(font));
}

}  // namespace tarrow
