#include "ui/commands/commands.h"

#include "ui/commands/menus.h"
#include "ui/program/string_ids.h"
#include "ui/program/string_table.h"

#include <gtest/gtest.h>

#include <set>

namespace tarrow {
namespace {

TEST(Commands, NamesAndNumbersAreUnique) {
  EXPECT_EQ(CommandNames().size(), 78u);
  std::set<CommandId> ids;
  std::set<std::string_view> names;
  for (const CommandName& row : CommandNames()) {
    EXPECT_TRUE(ids.insert(row.id).second) << row.id;
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
  }
}

TEST(Commands, NamesAreFoundInAnyCase) {
  EXPECT_EQ(CommandIdFromName("Edit:Cut"), kEditCut);
  EXPECT_EQ(CommandIdFromName("edit:cut"), kEditCut);
  EXPECT_EQ(CommandIdFromName("WINDOW:CLOSEALL"), kWindowCloseAll);
  EXPECT_EQ(CommandIdFromName("Edit:Undo"), kNoCommand);
  EXPECT_EQ(CommandIdFromName("Edit:Cu"), kNoCommand);
  EXPECT_EQ(CommandIdFromName(""), kNoCommand);
  EXPECT_EQ(CommandNameFromId(kSearchGrep), "Search:Grep");
  EXPECT_EQ(CommandNameFromId(kEditUndo), "");
}

void ExpectItemsAreComplete(std::span<const CommandId> items) {
  for (CommandId item : items) {
    if (item == kMenuSeparator || item == kRecentFileFirst) continue;
    EXPECT_NE(CommandMenuText(item), "") << item;
    EXPECT_NE(FindText(item), "") << "no prompt for " << item;
  }
}

TEST(Menus, EveryItemHasATextAndAPrompt) {
  for (const MenuPopup& popup : NoDocumentMenu()) ExpectItemsAreComplete(popup.items);
  for (const MenuPopup& popup : EditMenu()) ExpectItemsAreComplete(popup.items);
  ExpectItemsAreComplete(ContextMenu());
}

TEST(Menus, TheEditMenuHoldsEveryCommandThatHasAText) {
  std::set<CommandId> items;
  for (const MenuPopup& popup : EditMenu()) {
    for (CommandId item : popup.items) {
      EXPECT_TRUE(item == kMenuSeparator || items.insert(item).second) << item << " stands twice";
    }
  }
  for (const CommandName& row : CommandNames()) {
    EXPECT_EQ(items.contains(row.id), !CommandMenuText(row.id).empty()) << row.name;
  }
}

TEST(Menus, KeyTextsAreReplacedBehindTheTab) {
  EXPECT_EQ(WithKeyText("Cu&t\tCtrl+X", "\tCtrl+Alt+X"), "Cu&t\tCtrl+Alt+X");
  EXPECT_EQ(WithKeyText("Cu&t\tCtrl+X", ""), "Cu&t");
  EXPECT_EQ(WithKeyText("P&rint Setup...", "\tF7"), "P&rint Setup...\tF7");
}

TEST(Menus, AmpersandsInRecentFilesAreNoMnemonics) {
  EXPECT_EQ(RecentFileText(3, "c:\\r&d\\a.c"), "&3 c:\\r&&d\\a.c");
}

TEST(StringTable, FindsTextsPromptsAndPresets) {
  EXPECT_EQ(FindText(kTextOutOfMemory), "Out of memory on local heap");
  EXPECT_EQ(FindText(kTextUnmatchedOpen), "Unmatched '\\('");
  EXPECT_EQ(FindText(kFileNew), "Creates a new untitled file");
  EXPECT_EQ(FindText(kEditUndo), "Reverses the last action");
  EXPECT_EQ(FindText(kTextLastOption), "HelpEnv");
  EXPECT_EQ(FindText(PresetString(0, 0)), "cl386.exe /nologo /D_X86_=1");
  EXPECT_EQ(FindText(PresetString(kOptionCount - 1, 3)), "upshot");
  EXPECT_EQ(FindText(99), "");
  EXPECT_EQ(FindText(kEditCutAppend), "");
}

TEST(StringTable, EveryOptionHasAPresetInEveryEnvironmentButTheLast) {
  for (int environment = 0; environment + 1 < kEnvironmentCount; ++environment) {
    for (int option = 0; option < kOptionCount; ++option) {
      EXPECT_NE(FindText(PresetString(option, environment)), "") << environment << ' ' << option;
    }
  }
}

}  // namespace
}  // namespace tarrow
