#include "ui/settings/global_settings_form.h"

#include <gtest/gtest.h>

#include <bit>

namespace tarrow {
namespace {

using Effects = std::vector<SettingsEffect>;

TEST(GlobalSettingsForm, BoxesCoverEveryBitOnce) {
  EXPECT_EQ(SettingsBoxes().size(), 14u);
  std::uint32_t bits = 0;
  std::uint32_t whenClear = 0;
  for (const SettingsBox& box : SettingsBoxes()) {
    EXPECT_EQ(bits & box.flag, 0u);
    bits |= box.flag;
    if (box.setWhenClear) whenClear |= box.flag;
  }
  EXPECT_EQ(bits, 0xFFFu);
  EXPECT_EQ(whenClear, 0x23Fu);
}

TEST(GlobalSettingsForm, BoxesReadBackWhatTheyStore) {
  for (const SettingsBox& box : SettingsBoxes()) {
    for (bool checked : {true, false}) {
      GlobalSettings settings;
      std::uint32_t before = settings.flags;
      CheckBox(settings, box, checked);
      EXPECT_EQ(IsBoxChecked(settings, box), checked);
      EXPECT_EQ((settings.flags ^ before) & ~static_cast<std::uint32_t>(box.flag), 0u)
          << "another bit changed";
    }
  }
}

TEST(GlobalSettingsForm, SpacingHasItsBounds) {
  EXPECT_EQ(CheckSpacing(1, 1), SpacingProblem::kTabTooSmall);
  EXPECT_EQ(CheckSpacing(2, 1), SpacingProblem::kIndentTooSmall);
  EXPECT_EQ(CheckSpacing(2, 2), SpacingProblem::kNone);
  GlobalSettings settings;
  StoreSpacing(settings, 2, 9);
  EXPECT_EQ(settings.tabSize, 2);
  EXPECT_EQ(settings.shiftWidth, 8);
}

struct EffectCase {
  std::uint32_t before;
  std::uint32_t after;
  Effects effects;  // kUpdateAutoSave follows always
};

TEST(GlobalSettingsForm, ChangesHaveTheirEffects) {
  using enum SettingsEffect;
  const EffectCase cases[] = {
      {0, 0, {}},
      {0, kNoToolBar, {kRebuildToolBar}},
      {kNoStatusBar, 0, {kShowStatusBar}},
      {0, kNoStatusBar | kNoClock, {kHideStatusBar}},
      {0, kNoClock, {kStopClock}},
      {kNoClock, 0, {kStartClock}},
      {kNoClock | kNoStatusBar, kNoStatusBar, {}},
      {0, kNoProject, {kUpdateProjectMenu, kUpdateProjectButtons}},
      {kNoToolBar, kNoToolBar | kNoProject, {kUpdateProjectMenu}},
      {kNoToolBar | kNoProject, 0, {kRebuildToolBar, kUpdateProjectMenu, kUpdateProjectButtons}},
      {0, kCreateBackups | kBlockIndent, {}},
  };
  for (const EffectCase& row : cases) {
    GlobalSettings before, after;
    before.flags = row.before;
    after.flags = row.after;
    Effects expected = row.effects;
    expected.push_back(kUpdateAutoSave);
    EXPECT_EQ(EffectsOfChange(before, after), expected) << row.before << " to " << row.after;
  }
}

}  // namespace
}  // namespace tarrow
