// The Global Settings dialog without its window: what its boxes mean, what it accepts, and what the program
// has to do when it has been applied.
#pragma once

#include "ui/settings/global_settings.h"

#include <span>
#include <vector>

namespace tarrow {

// A check box: one of the two keys, or one of the bits, of which some are set when their box is clear.
struct SettingsBox {
  bool GlobalSettings::*key;  // null: the box is a bit
  GlobalFlag flag;
  bool setWhenClear;
};

// The boxes in the order in which they stand in the dialog.
[[nodiscard]] std::span<const SettingsBox> SettingsBoxes();

[[nodiscard]] bool IsBoxChecked(const GlobalSettings& settings, const SettingsBox& box);
void CheckBox(GlobalSettings& settings, const SettingsBox& box, bool checked);

// Whether the numbers of the fields will do. Stored settings may hold an indent of 1; the dialog asks for 2.
enum class SpacingProblem { kNone, kTabTooSmall, kIndentTooSmall };
[[nodiscard]] SpacingProblem CheckSpacing(int tabSize, int shiftWidth);

// Stores numbers that will do, none above what a settings file may hold.
void StoreSpacing(GlobalSettings& settings, int tabSize, int shiftWidth);

// What follows when settings have changed, to be done in this order.
enum class SettingsEffect {
  kRebuildToolBar,  // with the project buttons as they were before
  kShowStatusBar,
  kHideStatusBar,
  kStartClock,
  kStopClock,
  kUpdateProjectMenu,
  kUpdateProjectButtons,
  kUpdateAutoSave,
};
[[nodiscard]] std::vector<SettingsEffect> EffectsOfChange(const GlobalSettings& before,
                                                          const GlobalSettings& after);

}  // namespace tarrow
