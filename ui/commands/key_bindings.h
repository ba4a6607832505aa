// Which key runs which command: the defaults, the table that the user edits, and its way to and from the
// settings file.
//
// A table of bindings is the program's accelerator table: where two entries have the same key the first one
// wins, so the order of entries matters. A table holds at most one binding per command, but nothing keeps two
// commands from having the same key. Undo is bound to Ctrl+Z for good: it has no name to rebind it by.
#pragma once

#include "ui/commands/key_text.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarrow {

struct KeyBinding {
  KeyStroke stroke;
  CommandId command = kNoCommand;

  friend bool operator==(const KeyBinding&, const KeyBinding&) = default;
};

// The bindings of a program that has no settings.
[[nodiscard]] std::span<const KeyBinding> DefaultKeyBindings();

// The command that a key press runs: that of the first binding with this key and these modifiers.
[[nodiscard]] CommandId CommandForKey(std::span<const KeyBinding> bindings, KeyStroke stroke);

class KeyBindingTable {
 public:
  // One place per command that has a name. Undo takes one of them, so the last command is refused; that does
  // not come to pass before a user has bound all the others.
  static constexpr std::size_t kCapacity = 78;

  // Takes over the first kCapacity entries of a live table. The list of changes stays as it is: what an
  // earlier session of edits recorded is still to be saved.
  void Load(std::span<const KeyBinding> live);

  // Forgets the entries and the changes.
  void Clear();

  [[nodiscard]] std::span<const KeyBinding> Entries() const { return entries_; }
  [[nodiscard]] std::optional<KeyStroke> Find(CommandId command) const;

  // Binds the command to a key, in the command's place in the table or at its end; key 0 removes its binding.
  // False when there was nothing to remove or no place is free.
  bool Bind(KeyStroke stroke, CommandId command);

  // Binds, and records the change for saving. False also when the record found no memory; the command is then
  // bound all the same.
  bool Assign(KeyStroke stroke, CommandId command);

  // Takes the oldest change off the list. A removal has key and flags 0.
  [[nodiscard]] std::optional<KeyBinding> NextChange();

 private:
  std::vector<KeyBinding> entries_;
  std::deque<KeyBinding> changes_;
};

// One line of the settings file's section of key bindings.
struct KeyBindingEntry {
  std::string name;
  std::string value;
};

// A command whose key is another than its menu items show.
struct KeyTextChange {
  CommandId command;
  std::string keyText;
};

// Assigns what the settings file says to `table`, entry by entry; an entry that is malformed or names no
// command is ignored. Returns the menu items to rewrite. The changes are not recorded: they are saved
// already.
std::vector<KeyTextChange> LoadKeyBindings(std::span<const KeyBindingEntry> entries, KeyBindingTable& table);

// What a change asks for: the settings entry to write and the menu items to rewrite.
struct KeyBindingUpdate {
  KeyBindingEntry entry;
  KeyTextChange menu;
};
[[nodiscard]] KeyBindingUpdate UpdateFor(const KeyBinding& change);

}  // namespace tarrow
