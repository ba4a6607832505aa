#include "shell/commands/active_keys.h"

#include "shell/state/settings.h"

namespace tarrow {

void ActiveKeys::Load() {
  std::vector<KeyBindingEntry> entries;
  for (const std::string& key : store_.Keys(kKeyBindingsSection)) {
    std::string value;
    if (store_.ReadString(kKeyBindingsSection, key, value)) entries.push_back({key, value});
  }
  KeyBindingTable table;
  table.Load(DefaultKeyBindings());
  for (const KeyTextChange& change : LoadKeyBindings(entries, table))
    menus_.SetKeyText(change.command, change.keyText);
  keys_.assign(table.Entries().begin(), table.Entries().end());
}

void ActiveKeys::Apply(KeyBindingTable& keys) {
  keys_.assign(keys.Entries().begin(), keys.Entries().end());
  while (auto change = keys.NextChange()) {
    KeyBindingUpdate update = UpdateFor(*change);
    menus_.SetKeyText(update.menu.command, update.menu.keyText);
    store_.WriteString(kKeyBindingsSection, update.entry.name, update.entry.value);
  }
}

// The flags of a binding and those of the platform are the same numbers.
static_assert(kShiftKey == FSHIFT && kControlKey == FCONTROL && kAltKey == FALT);

UINT ActiveKeys::CommandOfKey(UINT key, BYTE modifiers) const {
  KeyStroke stroke{static_cast<std::uint8_t>(kVirtualKey | modifiers), static_cast<std::uint16_t>(key)};
  return CommandForKey(keys_, stroke);
}

}  // namespace tarrow
