#include "ui/settings/global_settings_form.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr int kGreatestSpacing = 8;

constexpr SettingsBox Key(bool GlobalSettings::*key) {
  return {key, {}, false};
}
constexpr SettingsBox OnBit(GlobalFlag flag) {
  return {nullptr, flag, false};
}
constexpr SettingsBox OffBit(GlobalFlag flag) {
  return {nullptr, flag, true};
}

constexpr SettingsBox kBoxes[] = {
    Key(&GlobalSettings::saveSettings),
    Key(&GlobalSettings::saveWindows),
    OffBit(kNoStatusBar),
    OffBit(kNoClock),
    OffBit(kNoToolBar),
    OffBit(kNoHorizontalScroll),
    OffBit(kNoVerticalScroll),
    OffBit(kSaveWithoutAsking),
    OnBit(kCreateBackups),
    OnBit(kSpaceDelimitsWords),
    OnBit(kVisibleAlerts),
    OffBit(kNoProject),
    OnBit(kMaintainIndentation),
    OnBit(kBlockIndent),
};

}  // namespace

std::span<const SettingsBox> SettingsBoxes() {
  return kBoxes;
}

bool IsBoxChecked(const GlobalSettings& settings, const SettingsBox& box) {
  return box.key ? settings.*box.key : settings.Has(box.flag) != box.setWhenClear;
}

void CheckBox(GlobalSettings& settings, const SettingsBox& box, bool checked) {
  if (box.key)
    settings.*box.key = checked;
  else
    settings.Set(box.flag, checked != box.setWhenClear);
}

SpacingProblem CheckSpacing(int tabSize, int shiftWidth) {
  if (tabSize < 2) return SpacingProblem::kTabTooSmall;
  return shiftWidth < 2 ? SpacingProblem::kIndentTooSmall : SpacingProblem::kNone;
}

void StoreSpacing(GlobalSettings& settings, int tabSize, int shiftWidth) {
  settings.tabSize = std::min(tabSize, kGreatestSpacing);
  settings.shiftWidth = std::min(shiftWidth, kGreatestSpacing);
}

std::vector<SettingsEffect> EffectsOfChange(const GlobalSettings& before, const GlobalSettings& after) {
  auto changed = [&](GlobalFlag flag) { return before.Has(flag) != after.Has(flag); };
  std::vector<SettingsEffect> effects;
  if (changed(kNoToolBar)) effects.push_back(SettingsEffect::kRebuildToolBar);
  if (changed(kNoStatusBar))
    effects.push_back(after.Has(kNoStatusBar) ? SettingsEffect::kHideStatusBar
                                              : SettingsEffect::kShowStatusBar);
  if (!after.Has(kNoStatusBar) && changed(kNoClock))
    effects.push_back(after.Has(kNoClock) ? SettingsEffect::kStopClock : SettingsEffect::kStartClock);
  if (changed(kNoProject)) {
    effects.push_back(SettingsEffect::kUpdateProjectMenu);
    if (!after.Has(kNoToolBar)) effects.push_back(SettingsEffect::kUpdateProjectButtons);
  }
  effects.push_back(SettingsEffect::kUpdateAutoSave);
  return effects;
}

}  // namespace tarrow
