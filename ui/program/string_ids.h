// The numbers of the texts that code names; the texts themselves stand in resources/strings.inc.
#pragma once

namespace tarrow {

enum StringId : int {
#define TARROW_STRING(number, constant, text) constant = number,
#include "resources/strings.inc"
};

// Build environments and their options (Compiler to HelpEnv).
inline constexpr int kEnvironmentCount = 5;
inline constexpr int kOptionCount = kTextLastOption - kTextFirstOption + 1;

// The string that holds the preset of option `option` (0 to kOptionCount - 1) for an environment that has
// presets (0 to kEnvironmentCount - 2).
constexpr int PresetString(int option, int environment) {
  return kTextFirstOption + option + kOptionCount * (environment + 1);
}

}  // namespace tarrow
