// ActiveKeys: the keys that run commands now, as the menus show them and the settings keep them.
#pragma once

#include "shell/frame/menu_bars.h"
#include "shell/state/profile_store.h"
#include "ui/commands/key_bindings.h"

#include <span>
#include <vector>

namespace tarrow {

class ActiveKeys {
 public:
  // Both outlive the object.
  ActiveKeys(CProfileStore& store, const MenuBars& menus) : store_(store), menus_(menus) {}

  // Takes the keys from the defaults and the user's bindings in the settings.
  void Load();

  // Takes over what the user has bound anew, and stores it.
  void Apply(KeyBindingTable& keys);

  // The command that a key with these modifiers (FSHIFT, FCONTROL, FALT) runs now, 0 for none.
  UINT CommandOfKey(UINT key, BYTE modifiers) const;

  std::span<const KeyBinding> Bindings() const { return keys_; }

 private:
  CProfileStore& store_;
  const MenuBars& menus_;
  std::vector<KeyBinding> keys_;
};

}  // namespace tarrow
