// The options of a build environment: their keys, and what stands for one that is not stored.
#pragma once

#include "ui/program/project_options.h"
#include "ui/program/string_ids.h"

#include <string>
#include <string_view>

namespace tarrow {

// The key of an option (0 to kOptionCount - 1) in the section of an environment.
[[nodiscard]] std::string_view OptionKey(int option);

// The preset of an option for an environment (0 to kEnvironmentCount - 1); the last one has none.
[[nodiscard]] std::string_view OptionPreset(int option, int environment);

}  // namespace tarrow
