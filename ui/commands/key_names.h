// The keys that a command can be bound to, with the names that the user sees.
//
// Codes are virtual-key codes. The list begins with "Unassigned" (code 0) and is shown in this order. It
// offers "Shift", "Control", "Menu" and "Capital" as keys of their own although they are modifiers: a bare
// Shift can run a command for who wants it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tarrow {

struct KeyName {
  std::uint16_t key;
  std::string_view name;
};

[[nodiscard]] std::span<const KeyName> KeyNames();

// The name of a key; empty for a code that the list lacks.
[[nodiscard]] std::string_view NameOfKey(std::uint16_t key);

}  // namespace tarrow
