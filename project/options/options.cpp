#include "project/options/options.h"

#include "ui/program/string_table.h"

namespace tarrow {

std::string_view OptionKey(int option) {
  return FindText(kTextFirstOption + option);
}

// A string of the table cannot be empty, so a preset of one blank stands for the empty text.
std::string_view OptionPreset(int option, int environment) {
  if (environment >= kEnvironmentCount - 1) return {};
  std::string_view preset = FindText(PresetString(option, environment));
  return preset == " " ? std::string_view() : preset;
}

}  // namespace tarrow
