#include "ui/commands/commands.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr CommandName kNames[] = {
#define TARROW_COMMAND(number, constant, name, menu, prompt) {constant, name},
#include "ui/commands/commands.inc"
};

struct CommandMenuRow {
  CommandId id;
  std::string_view text;
};

constexpr CommandMenuRow kMenuTexts[] = {
#define TARROW_COMMAND(number, constant, name, menu, prompt) {constant, menu},
#define TARROW_UNNAMED_COMMAND(number, constant, menu, prompt) {constant, menu},
#include "ui/commands/commands.inc"
};

constexpr char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, ToLowerAscii, ToLowerAscii);
}

}  // namespace

std::span<const CommandName> CommandNames() {
  return kNames;
}

std::string_view CommandNameFromId(CommandId id) {
  auto row = std::ranges::find(kNames, id, &CommandName::id);
  return row != std::end(kNames) ? row->name : std::string_view();
}

CommandId CommandIdFromName(std::string_view name) {
  auto isNamed = [&](const CommandName& row) { return EqualIgnoringCase(row.name, name); };
  auto found = std::ranges::find_if(kNames, isNamed);
  return found != std::end(kNames) ? found->id : kNoCommand;
}

std::string_view CommandMenuText(CommandId id) {
  auto row = std::ranges::find(kMenuTexts, id, &CommandMenuRow::id);
  return row != std::end(kMenuTexts) ? row->text : std::string_view();
}

}  // namespace tarrow
