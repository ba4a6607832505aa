// Any lines of "name=value" are key bindings: the table keeps its bounds, and Undo its key.
#include "ui/commands/key_bindings.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>

namespace tarrow {
namespace {

std::vector<KeyBindingEntry> EntriesOf(std::string_view text) {
  std::vector<KeyBindingEntry> entries;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
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
