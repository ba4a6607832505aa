// A key with its modifiers as text: for menus ("\tCtrl+Shift+F5") and for the settings file ("116,13").
#pragma once

#include "ui/commands/commands.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// Modifiers of a key; the numbers are those of the settings file and of the platform's accelerators.
enum KeyFlag : std::uint8_t {
  kVirtualKey = 0x01,  // set in every binding
  kShiftKey = 0x04,
  kControlKey = 0x08,
  kAltKey = 0x10,
};

// A key and its modifiers. Key 0 is no key.
struct KeyStroke {
  std::uint8_t flags = 0;
  std::uint16_t key = 0;

  friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

// A key with modifiers as a user chooses them; nothing for key 0.
[[nodiscard]] constexpr KeyStroke MakeKeyStroke(std::uint16_t key, bool control, bool shift, bool alt) {
  if (key == 0) return {};
  int flags = kVirtualKey | (control ? kControlKey : 0) | (shift ? kShiftKey : 0) | (alt ? kAltKey : 0);
  return {static_cast<std::uint8_t>(flags), key};
}

// What a menu item shows behind its text, with the TAB that parts them: "\tCtrl+Alt+Shift+F5". Empty for no
// key. Nothing when the key has no name, or the flags are 0 and the key is not.
[[nodiscard]] std::optional<std::string> KeyText(KeyStroke stroke);

// The value of a settings entry: key code and flags in decimal.
[[nodiscard]] std::string FormatKeyValue(KeyStroke stroke);

// Reads such a value; blanks and commas may part the numbers, and a number that is missing counts as 0.
// Nothing when the value begins with no number, or a number is out of range.
[[nodiscard]] std::optional<KeyStroke> ParseKeyValue(std::string_view value);

}  // namespace tarrow
