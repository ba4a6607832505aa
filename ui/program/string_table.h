// The string table as the engines and the console program see it, without resources.
//
// The same rows feed the resource script, so a text looked up here is the one that LoadText() finds. Prompts
// of commands are strings too, under the command's number.
#pragma once

#include <string_view>

namespace tarrow {

// String `id`; empty when there is none.
[[nodiscard]] std::string_view FindText(int id);

}  // namespace tarrow
