#include "resources/resource.h"
#include "tests/fakes/fake_program.h"
#include "ui/commands/key_names.h"
#include "ui/program/string_ids.h"
#include "ui/settings/global_settings_dialog.h"
#include "ui/settings/key_bindings_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::uint16_t kF5 = 0x74;

// The dialogs run modeless here, so that a test drives them with the messages of their controls.
class KeyBindingsDialogTest : public testing::Test {
 protected:
  void Open() { ASSERT_TRUE(dialog_.CreateModeless(nullptr)); }

  void SelectCommand(CommandId command) {
    auto row = std::ranges::find(CommandNames(), command, &CommandName::id) - CommandNames().begin();
    ::SendMessageW(dialog_.Item(IDC_COMMANDS), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    Notify(IDC_COMMANDS, LBN_SELCHANGE);
  }
  void SelectKey(std::uint16_t key) {
    auto row = std::ranges::find(KeyNames(), key, &KeyName::key) - KeyNames().begin();
    ::SendMessageW(dialog_.Item(IDC_KEYS), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    Notify(IDC_KEYS, CBN_SELCHANGE);
  }
  std::uint16_t ShownKey() const {
    return KeyNames()[static_cast<std::size_t>(::SendMessageW(dialog_.Item(IDC_KEYS), CB_GETCURSEL, 0, 0))]
        .key;
  }
  void Click(int id) { ::SendMessageW(dialog_.Item(id), BM_CLICK, 0, 0); }
  void Notify(int id, int code) {
    dialog_.Send(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(dialog_.Item(id)));
  }
  bool Enabled(int id) const { return ::IsWindowEnabled(dialog_.Item(id)) != 0; }

  FakeMessages messages_;
  FakeHelp help_;
  KeyBindingTable table_;
  CKeyBindingsDialog dialog_{messages_, help_, table_, DefaultKeyBindings()};
};

TEST_F(KeyBindingsDialogTest, OpensWithTheFirstCommandAndItsKey) {
  Open();
  EXPECT_EQ(::SendMessageW(dialog_.Item(IDC_COMMANDS), LB_GETCOUNT, 0, 0), 78);
  EXPECT_EQ(::SendMessageW(dialog_.Item(IDC_KEYS), CB_GETCOUNT, 0, 0), 105);
  EXPECT_EQ(ShownKey(), 'N');
  EXPECT_TRUE(dialog_.ItemChecked(IDC_CONTROL));
  EXPECT_FALSE(dialog_.ItemChecked(IDC_SHIFT));
  EXPECT_FALSE(Enabled(IDC_SET_KEY));
  EXPECT_TRUE(Enabled(IDC_ALT));
}

TEST_F(KeyBindingsDialogTest, ACommandWithoutAKeyShowsUnassigned) {
  Open();
  SelectCommand(kHelpAbout);
  EXPECT_EQ(ShownKey(), 0);
  for (int id : {IDC_CONTROL, IDC_SHIFT, IDC_ALT}) {
    EXPECT_FALSE(Enabled(id));
    EXPECT_FALSE(dialog_.ItemChecked(id));
  }
  SelectKey(kF5);
  EXPECT_TRUE(Enabled(IDC_SHIFT));
  EXPECT_TRUE(Enabled(IDC_SET_KEY));
  SelectKey(0);
  EXPECT_FALSE(Enabled(IDC_SHIFT));
  EXPECT_TRUE(Enabled(IDC_SET_KEY));
}

TEST_F(KeyBindingsDialogTest, SetBindsAndUnassignedRemoves) {
  Open();
  SelectCommand(kEditCut);
  Click(IDC_ALT);
  EXPECT_TRUE(Enabled(IDC_SET_KEY));
  Click(IDC_SET_KEY);
  EXPECT_FALSE(Enabled(IDC_SET_KEY));
  EXPECT_EQ(table_.Find(kEditCut), (KeyStroke{25, 'X'}));
  SelectCommand(kEditCopy);
  SelectKey(0);
  Click(IDC_SET_KEY);
  EXPECT_EQ(table_.Find(kEditCopy), std::nullopt);
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{25, 'X'}, kEditCut}));
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{}, kEditCopy}));
  EXPECT_EQ(messages_.outOfMemory, 0);
}

TEST_F(KeyBindingsDialogTest, TheLastCommandFindsTheTableFull) {
  Open();
  for (const CommandName& row : CommandNames())
    if (!table_.Find(row.id)) table_.Bind({1, kF5}, row.id);
  SelectCommand(kHelpAbout);
  SelectKey(kF5);
  Click(IDC_SET_KEY);
  EXPECT_EQ(messages_.outOfMemory, 1);
}

TEST_F(KeyBindingsDialogTest, EachOpeningStartsFromTheLiveTable) {
  ASSERT_TRUE(table_.Assign({1, kF5}, kHelpAbout));
  Open();
  EXPECT_EQ(table_.Find(kHelpAbout), std::nullopt);
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{1, kF5}, kHelpAbout}));
  Click(IDC_HELP_BUTTON);
  EXPECT_EQ(help_.topics, std::vector<unsigned>{50});
}

class GlobalSettingsDialogTest : public testing::Test {
 protected:
  GlobalSettingsDialogTest() { EXPECT_TRUE(dialog_.CreateModeless(nullptr)); }
  void Click(int id) { ::SendMessageW(dialog_.Item(id), BM_CLICK, 0, 0); }

  FakeMessages messages_;
  FakeHelp help_;
  GlobalSettingsChoice choice_;
  CGlobalSettingsDialog dialog_{messages_, help_, choice_, DefaultKeyBindings()};
};

TEST_F(GlobalSettingsDialogTest, ShowsTheSettings) {
  EXPECT_TRUE(dialog_.ItemChecked(IDC_SAVE_SETTINGS));
  EXPECT_TRUE(dialog_.ItemChecked(IDC_SHOW_STATUS_BAR));
  EXPECT_FALSE(dialog_.ItemChecked(IDC_SHOW_HORIZONTAL_SCROLL));
  EXPECT_TRUE(dialog_.ItemChecked(IDC_MAINTAIN_INDENTATION));
  EXPECT_FALSE(dialog_.ItemChecked(IDC_CREATE_BACKUPS));
  EXPECT_EQ(dialog_.ItemText(IDC_TAB_SIZE), "8");
  EXPECT_EQ(dialog_.ItemText(IDC_SHIFT_WIDTH), "4");
  EXPECT_FALSE(::IsWindowEnabled(dialog_.Item(IDC_PAGE_SETUP)));
}

TEST_F(GlobalSettingsDialogTest, AppliesBoxesAndFields) {
  Click(IDC_SAVE_WINDOWS);
  Click(IDC_SHOW_CLOCK);
  Click(IDC_CREATE_BACKUPS);
  dialog_.SetItemText(IDC_TAB_SIZE, "12");
  dialog_.SetItemText(IDC_SHIFT_WIDTH, "2");
  Click(IDOK);
  EXPECT_FALSE(dialog_.Exists());
  EXPECT_FALSE(choice_.settings.saveWindows);
  EXPECT_EQ(choice_.settings.flags, GlobalSettings::kDefaultFlags | kNoClock | kCreateBackups);
  EXPECT_EQ(choice_.settings.tabSize, 8);
  EXPECT_EQ(choice_.settings.shiftWidth, 2);
}

TEST_F(GlobalSettingsDialogTest, BlockIndentGoesWithMaintainIndentation) {
  Click(IDC_MAINTAIN_INDENTATION);
  Click(IDC_BLOCK_INDENT);
  EXPECT_TRUE(dialog_.ItemChecked(IDC_MAINTAIN_INDENTATION));
  Click(IDC_MAINTAIN_INDENTATION);
  EXPECT_FALSE(dialog_.ItemChecked(IDC_BLOCK_INDENT));
}

TEST_F(GlobalSettingsDialogTest, RefusesSmallSpacingAndStaysOpen) {
  Click(IDC_SHOW_CLOCK);
  dialog_.SetItemText(IDC_TAB_SIZE, "1");
  Click(IDOK);
  dialog_.SetItemText(IDC_TAB_SIZE, "4");
  dialog_.SetItemText(IDC_SHIFT_WIDTH, "");
  Click(IDOK);
  EXPECT_EQ(messages_.boxes, (std::vector<int>{kTextTabTooSmall, kTextIndentTooSmall}));
  EXPECT_TRUE(dialog_.Exists());
  EXPECT_EQ(choice_.settings.flags, GlobalSettings::kDefaultFlags) << "nothing is stored before all is right";
  EXPECT_EQ(choice_.settings.tabSize, 8);
}

}  // namespace
}  // namespace tarrow
