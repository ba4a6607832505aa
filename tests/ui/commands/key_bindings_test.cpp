#include "ui/commands/key_bindings.h"

#include "ui/commands/key_names.h"
#include "ui/commands/menus.h"

#include <gtest/gtest.h>

#include <set>

namespace tarrow {
namespace {

constexpr std::uint16_t kF5 = 0x74;

TEST(KeyNames, CodesAndNamesAreUnique) {
  EXPECT_EQ(KeyNames().size(), 105u);
  std::set<std::uint16_t> keys;
  std::set<std::string_view> names;
  for (const KeyName& row : KeyNames()) {
    EXPECT_TRUE(keys.insert(row.key).second) << row.name;
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
  }
  EXPECT_EQ(KeyNames()[0].name, "Unassigned");
  EXPECT_EQ(KeyNames()[71].name, "Backspace");
  EXPECT_EQ(NameOfKey(0x87), "F24");
  EXPECT_EQ(NameOfKey(0x69), "Num 9");
}

TEST(KeyText, OrdersModifiersCtrlAltShift) {
  EXPECT_EQ(KeyText({kVirtualKey | kControlKey | kAltKey | kShiftKey, kF5}), "\tCtrl+Alt+Shift+F5");
  EXPECT_EQ(KeyText({13, kF5}), "\tCtrl+Shift+F5");
  EXPECT_EQ(KeyText({1, 0x67}), "\tNum 7");
  EXPECT_EQ(KeyText({1, 0x21}), "\tPage Up");
  EXPECT_EQ(KeyText({}), "");
  EXPECT_EQ(KeyText({9, 0}), "");
  EXPECT_EQ(KeyText({0, kF5}), std::nullopt);
  EXPECT_EQ(KeyText({9, 0xFE}), std::nullopt);
}

TEST(KeyText, ValuesReadLeniently) {
  const KeyStroke ctrlX{9, 88};
  EXPECT_EQ(ParseKeyValue("88,9"), ctrlX);
  EXPECT_EQ(ParseKeyValue("88 , 9"), ctrlX);
  EXPECT_EQ(ParseKeyValue("88,,9"), ctrlX);
  EXPECT_EQ(ParseKeyValue(" +88 9 and more"), ctrlX);
  EXPECT_EQ(ParseKeyValue("88"), (KeyStroke{0, 88}));
  EXPECT_EQ(ParseKeyValue("0,0"), KeyStroke{});
  for (const char* malformed :
       {"", " ", ",", "abc", "-1,9", "88,-9", "88,256", "65536,9", "99999999999999999999,9"})
    EXPECT_EQ(ParseKeyValue(malformed), std::nullopt) << malformed;
}

TEST(KeyText, EveryKeyReadsBackFromTheSettings) {
  for (const KeyName& row : KeyNames()) {
    for (int flags = 0; flags < 256; ++flags) {
      KeyStroke stroke{static_cast<std::uint8_t>(flags), row.key};
      ASSERT_EQ(ParseKeyValue(FormatKeyValue(stroke)), stroke);
    }
  }
}

TEST(DefaultKeyBindings, AreThoseThatTheMenusShow) {
  KeyBindingTable table;
  table.Load(DefaultKeyBindings());
  for (const MenuPopup& popup : EditMenu()) {
    for (CommandId command : popup.items) {
      std::string shown(CommandMenuText(command));
      shown.erase(0, shown.find('\t'));
      if (std::size_t tab = shown.rfind("TAB"); tab != std::string::npos) shown.replace(tab, 3, "Tab");
      EXPECT_EQ(KeyText(table.Find(command).value_or(KeyStroke{})), shown) << CommandMenuText(command);
    }
  }
}

TEST(DefaultKeyBindings, BindEachKeyAndCommandOnce) {
  EXPECT_EQ(DefaultKeyBindings().size(), 42u);
  std::set<CommandId> commands;
  for (const KeyBinding& binding : DefaultKeyBindings()) {
    EXPECT_TRUE(commands.insert(binding.command).second) << binding.command;
    EXPECT_EQ(CommandForKey(DefaultKeyBindings(), binding.stroke), binding.command);
  }
}

class KeyBindingTableTest : public testing::Test {
 protected:
  KeyBindingTableTest() { table_.Load(DefaultKeyBindings()); }
  KeyBindingTable table_;
};

TEST_F(KeyBindingTableTest, AReboundCommandKeepsItsPlaceAndANewOneGoesToTheEnd) {
  const KeyStroke f5{kVirtualKey, kF5};
  ASSERT_TRUE(table_.Assign(f5, kSearchGrep));
  EXPECT_EQ(CommandForKey(table_.Entries(), f5), kSearchFind);
  ASSERT_TRUE(table_.Assign(f5, kEditMoveBackEnd));
  EXPECT_EQ(CommandForKey(table_.Entries(), f5), kEditMoveBackEnd);
  ASSERT_TRUE(table_.Assign(f5, kHelpAbout));
  EXPECT_EQ(table_.Entries().back(), (KeyBinding{f5, kHelpAbout}));
}

TEST_F(KeyBindingTableTest, RemovingClosesTheGapAndIsRecorded) {
  ASSERT_TRUE(table_.Assign({9, 0}, kEditCut));
  EXPECT_EQ(table_.Find(kEditCut), std::nullopt);
  EXPECT_EQ(table_.Entries().size(), DefaultKeyBindings().size() - 1);
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{}, kEditCut}));
  EXPECT_FALSE(table_.Assign({}, kEditCut));
  EXPECT_EQ(table_.NextChange(), std::nullopt);
}

TEST_F(KeyBindingTableTest, ChangesComeInOrderAndOutliveAReload) {
  ASSERT_TRUE(table_.Assign({1, kF5}, kHelpAbout));
  table_.Load(DefaultKeyBindings());
  EXPECT_EQ(table_.Find(kHelpAbout), std::nullopt);
  ASSERT_TRUE(table_.Assign({9, kF5}, kEditCut));
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{1, kF5}, kHelpAbout}));
  EXPECT_EQ(table_.NextChange(), (KeyBinding{{9, kF5}, kEditCut}));
  EXPECT_EQ(table_.NextChange(), std::nullopt);
}

TEST_F(KeyBindingTableTest, UndoHoldsItsPlaceAgainstTheLastCommand) {
  int refused = 0;
  for (const CommandName& row : CommandNames())
    if (!table_.Find(row.id) && !table_.Assign({25, 'Q'}, row.id)) ++refused;
  EXPECT_EQ(refused, 1);
  EXPECT_EQ(table_.Entries().size(), KeyBindingTable::kCapacity);
  EXPECT_EQ(CommandForKey(table_.Entries(), {9, 'Z'}), kEditUndo);
}

TEST_F(KeyBindingTableTest, LoadsGoodEntriesAndIgnoresTheRest) {
  const KeyBindingEntry entries[] = {{"edit:cut", "88,25"},  {"Edit:Copy", "0,0"},     {"Edit:Undo", "90,25"},
                                     {"Edit:Paste", "86"},   {"File:New", "nonsense"}, {"No:Such", "65,9"},
                                     {"File:Open", "254,9"}, {"Help:About", "120,8"}};
  std::vector<KeyTextChange> changed = LoadKeyBindings(entries, table_);
  ASSERT_EQ(changed.size(), 3u);
  EXPECT_EQ(changed[0].command, kEditCut);
  EXPECT_EQ(WithKeyText(CommandMenuText(kEditCut), changed[0].keyText), "Cu&t\tCtrl+Alt+X");
  EXPECT_EQ(WithKeyText(CommandMenuText(kEditCopy), changed[1].keyText), "&Copy");
  EXPECT_EQ(table_.Find(kEditCut), (KeyStroke{25, 88}));
  EXPECT_EQ(table_.Find(kEditCopy), std::nullopt);
  EXPECT_EQ(table_.Find(kEditPaste), (KeyStroke{9, 'V'}));
  EXPECT_EQ(table_.Find(kFileNew), (KeyStroke{9, 'N'}));
  EXPECT_EQ(table_.Find(kHelpAbout), (KeyStroke{9, 120}));
  EXPECT_EQ(CommandForKey(table_.Entries(), {9, 'Z'}), kEditUndo);
  EXPECT_EQ(table_.NextChange(), std::nullopt);
}

TEST_F(KeyBindingTableTest, AChangeSaysWhatToWriteAndShow) {
  KeyBindingUpdate bound = UpdateFor({{13, kF5}, kHelpAbout});
  EXPECT_EQ(bound.entry.name, "Help:About");
  EXPECT_EQ(bound.entry.value, "116,13");
  EXPECT_EQ(bound.menu.keyText, "\tCtrl+Shift+F5");
  KeyBindingUpdate removed = UpdateFor({{}, kEditCut});
  EXPECT_EQ(removed.entry.value, "0,0");
  EXPECT_EQ(removed.menu.keyText, "");
}

}  // namespace
}  // namespace tarrow
