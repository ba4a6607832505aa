// The texts of the program's resources, by number, as UTF-8.
#pragma once

#include "base/text_format.h"

#include <initializer_list>
#include <string>

namespace tarrow {

// String `id` of the string table; empty when there is none.
std::string LoadText(int id);

// String `id` formatted with `args`; "*id*" when there is none, so that a missing text is seen and can be
// named.
std::string FormatTextResource(int id, std::initializer_list<FormatArg> args);

}  // namespace tarrow
