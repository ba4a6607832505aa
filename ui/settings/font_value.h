// A font as a value of the settings file: face, height, weight, italic, apart by commas.
#pragma once

#include "ui/settings/global_settings.h"

#include <string>
#include <string_view>

namespace tarrow {

// The font of a value, its height as it is written; what is missing is 0. A value without a face, or with one
// of 32 characters or more, gives the empty choice.
[[nodiscard]] FontChoice ParseFont(std::string_view value);
[[nodiscard]] std::string FormatFont(const FontChoice& font);

}  // namespace tarrow
