// The menus: what stands in them and in what order. The texts are those of the commands
// (ui/commands/commands.inc).
//
// Windows builds its menus from these tables (ui/menu_builder.h). The place of the recent files is marked by
// kRecentFileFirst; it is filled while there are any.
#pragma once

#include "ui/commands/commands.h"

#include <span>
#include <string>
#include <string_view>

namespace tarrow {

// Stands for a separator in a list of items.
inline constexpr CommandId kMenuSeparator = kNoCommand;

struct MenuPopup {
  std::string_view title;
  std::span<const CommandId> items;
};

// The bar shown while no window is open, the bar of edit windows, and the popup menu of an edit window.
[[nodiscard]] std::span<const MenuPopup> NoDocumentMenu();
[[nodiscard]] std::span<const MenuPopup> EditMenu();
[[nodiscard]] std::span<const CommandId> ContextMenu();

// Where popups stand that the frame deals with by their place.
inline constexpr int kNoDocumentProjectPopup = 2;
inline constexpr int kNoDocumentToolsPopup = 3;
inline constexpr int kEditProjectPopup = 4;
inline constexpr int kEditWindowPopup = 6;

// `itemText` with what follows its TAB replaced by `keyText` (which brings a TAB of its own, or is empty).
[[nodiscard]] std::string WithKeyText(std::string_view itemText, std::string_view keyText);

// The item of a recent file: its place (from 1) as mnemonic, and its name with every ampersand doubled.
[[nodiscard]] std::string RecentFileText(int place, std::string_view path);

}  // namespace tarrow
