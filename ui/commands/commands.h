// The command vocabulary: numbers, names, menu texts and prompts of every command.
//
// The number of a command is shared by its menu item, accelerator, tool button and prompt. The named commands
// are those that a user can bind to keys. All texts are constant.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tarrow {

enum CommandId : std::uint16_t {
  kNoCommand = 0,
#define TARROW_COMMAND(number, constant, name, menu, prompt) constant = number,
#define TARROW_UNNAMED_COMMAND(number, constant, menu, prompt) constant = number,
#include "ui/commands/commands.inc"
  kRecentFileFirst = 1021,
  kRecentFileLast = 1026,
};

struct CommandName {
  CommandId id;
  std::string_view name;
};

// The commands that have a name, in the order in which they are listed to the user.
[[nodiscard]] std::span<const CommandName> CommandNames();

// The name of a named command; empty for any other number.
[[nodiscard]] std::string_view CommandNameFromId(CommandId id);

// The command of that name in upper or lower case; kNoCommand when there is none.
[[nodiscard]] CommandId CommandIdFromName(std::string_view name);

// The text of the command's menu item as menus are first built, with its key behind a TAB; empty when no menu
// has it.
[[nodiscard]] std::string_view CommandMenuText(CommandId id);

}  // namespace tarrow
