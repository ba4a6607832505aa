// Any lines of "name=value" are key bindings: the table keeps its bounds, and Undo its key.
//
// A line that begins with a byte of 0x80 or above names a command and a key of the program by number, so that
// most inputs bind something.
#include "ui/commands/key_bindings.h"
#include "ui/commands/key_names.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>

namespace tarrow {
namespace {

KeyBindingEntry EntryByNumbers(std::string_view line) {
  auto number = [&](std::size_t i) { return i < line.size() ? static_cast<std::uint8_t>(line[i]) : 0u; };
  auto names = CommandNames();
  KeyStroke stroke = MakeKeyStroke(KeyNames()[number(1) % KeyNames().size()].key, number(2) & 1,
                                   number(2) & 2, number(2) & 4);
  return {std::string(names[number(0) % names.size()].name), FormatKeyValue(stroke)};
}

std::vector<KeyBindingEntry> EntriesOf(std::string_view text) {
  std::vector<KeyBindingEntry> entries;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (!line.empty() && static_cast<std::uint8_t>(line[0]) >= 0x80) {
      entries.push_back(EntryByNumbers(line));
      continue;
    }
    std::size_t equals = std::min(line.find('='), line.size());
    entries.push_back(
        {std::string(line.substr(0, equals)), std::string(line.substr(std::min(equals + 1, line.size())))});
  }
  return entries;
}

void LoadBindings(std::string_view text) {
  KeyBindingTable table;
  table.Load(DefaultKeyBindings());
  for (const KeyTextChange& change : LoadKeyBindings(EntriesOf(text), table)) {
    if (change.command == kEditUndo || CommandNameFromId(change.command).empty()) std::abort();
  }
  if (table.Entries().size() > KeyBindingTable::kCapacity) std::abort();
  std::set<CommandId> bound;
  for (const KeyBinding& binding : table.Entries()) {
    if (!bound.insert(binding.command).second || !KeyText(binding.stroke)) std::abort();
    if (ParseKeyValue(FormatKeyValue(binding.stroke)) != binding.stroke) std::abort();
  }
  if (table.Find(kEditUndo) != KeyStroke{kVirtualKey | kControlKey, 'Z'}) std::abort();
}

}  // namespace
}  // namespace tarrow

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarrow::LoadBindings(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
