#include "ui/commands/key_bindings.h"

#include <algorithm>
#include <new>

namespace tarrow {

namespace {

constexpr std::uint8_t kBare = kVirtualKey;
constexpr std::uint8_t kCtrl = kVirtualKey | kControlKey;
constexpr std::uint8_t kShift = kVirtualKey | kShiftKey;
constexpr std::uint8_t kCtrlShift = kCtrl | kShiftKey;

constexpr std::uint16_t kTab = 0x09;
constexpr std::uint16_t kInsert = 0x2D;
constexpr std::uint16_t F(int number) {
  return static_cast<std::uint16_t>(0x70 + number - 1);
}

constexpr KeyBinding kDefaults[] = {
    {{kCtrl, 'A'}, kEditMoveBackEnd},
    {{kCtrlShift, 'A'}, kEditSelBackEnd},
    {{kCtrl, 'B'}, kEditMoveBackStart},
    {{kCtrlShift, 'B'}, kEditSelBackStart},
    {{kCtrl, 'C'}, kEditCopy},
    {{kCtrlShift, 'C'}, kEditCopyAppend},
    {{kCtrl, 'E'}, kEditMoveFwdEnd},
    {{kCtrlShift, 'E'}, kEditSelFwdEnd},
    {{kCtrl, 'F'}, kEditMoveFwdStart},
    {{kCtrlShift, 'F'}, kEditSelFwdStart},
    {{kCtrl, 'G'}, kSearchGotoLine},
    {{kCtrl, 'L'}, kEditLower},
    {{kCtrl, 'N'}, kFileNew},
    {{kCtrl, 'O'}, kFileOpen},
    {{kCtrl, 'S'}, kFileSave},
    {{kCtrlShift, 'S'}, kFileSaveAll},
    {{kCtrl, 'T'}, kEditTranspose},
    {{kCtrl, 'U'}, kEditUpper},
    {{kCtrl, 'V'}, kEditPaste},
    {{kCtrl, 'X'}, kEditCut},
    {{kCtrlShift, 'X'}, kEditCutAppend},
    {{kCtrl, 'Z'}, kEditUndo},
    {{kBare, F(1)}, kHelpContext},
    {{kCtrl, F(1)}, kHelpEnvironment},
    {{kShift, F(1)}, kHelpSDK},
    {{kCtrlShift, F(1)}, kHelpFileStats},
    {{kBare, F(2)}, kProjectBuild},
    {{kCtrl, F(2)}, kProjectBuildTarget},
    {{kBare, F(4)}, kFileManage},
    {{kBare, F(5)}, kSearchFind},
    {{kCtrl, F(5)}, kSearchFindNext},
    {{kCtrlShift, F(5)}, kSearchGrep},
    {{kShift, F(5)}, kSearchFindPrev},
    {{kBare, F(8)}, kSearchReplace},
    {{kCtrl, F(8)}, kSearchReplaceNext},
    {{kBare, F(9)}, kSearchMatchBrace},
    {{kBare, F(11)}, kWindowSelector},
    {{kBare, F(12)}, kFileSaveAs},
    {{kShift, F(12)}, kFilePrint},
    {{kBare, kInsert}, kSetInsert},
    {{kCtrl, kTab}, kEditShiftRight},
    {{kShift, kTab}, kEditShiftLeft},
};

}  // namespace

std::span<const KeyBinding> DefaultKeyBindings() {
  return kDefaults;
}

CommandId CommandForKey(std::span<const KeyBinding> bindings, KeyStroke stroke) {
  auto found = std::ranges::find(bindings, stroke, &KeyBinding::stroke);
  return found != bindings.end() ? found->command : kNoCommand;
}

void KeyBindingTable::Load(std::span<const KeyBinding> live) {
  live = live.first(std::min(live.size(), kCapacity));
  entries_.reserve(kCapacity);
  entries_.assign(live.begin(), live.end());
}

void KeyBindingTable::Clear() {
  entries_.clear();
  changes_.clear();
}

std::optional<KeyStroke> KeyBindingTable::Find(CommandId command) const {
  auto found = std::ranges::find(entries_, command, &KeyBinding::command);
  if (found == entries_.end()) return {};
  return found->stroke;
}

bool KeyBindingTable::Bind(KeyStroke stroke, CommandId command) {
  auto found = std::ranges::find(entries_, command, &KeyBinding::command);
  const bool bound = found != entries_.end();
  if (stroke.key == 0) {
    if (bound) entries_.erase(found);
    return bound;
  }
  if (bound) {
    found->stroke = stroke;
    return true;
  }
  if (entries_.size() >= kCapacity) return false;
  entries_.push_back({stroke, command});
  return true;
}

bool KeyBindingTable::Assign(KeyStroke stroke, CommandId command) {
  if (!Bind(stroke, command)) return false;
  try {
    changes_.push_back({stroke.key == 0 ? KeyStroke{} : stroke, command});
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

std::optional<KeyBinding> KeyBindingTable::NextChange() {
  if (changes_.empty()) return {};
  KeyBinding change = changes_.front();
  changes_.pop_front();
  return change;
}

std::vector<KeyTextChange> LoadKeyBindings(std::span<const KeyBindingEntry> entries, KeyBindingTable& table) {
  std::vector<KeyTextChange> changed;
  for (const KeyBindingEntry& entry : entries) {
    CommandId command = CommandIdFromName(entry.name);
    std::optional<KeyStroke> stroke = ParseKeyValue(entry.value);
    if (command == kNoCommand || !stroke) continue;
    std::optional<std::string> text = KeyText(*stroke);
    if (!text) continue;
    // Without the flag of a virtual key the platform would take the code for a typed character.
    if (stroke->key != 0) stroke->flags |= kVirtualKey;
    if (table.Bind(*stroke, command)) changed.push_back({command, std::move(*text)});
  }
  return changed;
}

KeyBindingUpdate UpdateFor(const KeyBinding& change) {
  return {{std::string(CommandNameFromId(change.command)), FormatKeyValue(change.stroke)},
          {change.command, KeyText(change.stroke).value_or(std::string())}};
}

}  // namespace tarrow
