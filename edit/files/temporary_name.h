// The names of the temporary files that stand beside a file while it is saved.
//
// Such a name begins with the name of the file and ends in a word of the program's own: what a killed save
// leaves behind tells whoever finds it, the user or the program, which file it is the whole text of. Paths
// are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarrow {

// The path of a temporary file beside `path`: its name, then `number` in hexadecimal. The name is cut,
// between characters, where the whole would be longer than a name or a path may be; a directory whose own
// path leaves no room at all gives a path that is too long.
[[nodiscard]] std::string TemporaryName(std::string_view path, std::uint32_t number);

// The path that a temporary file was made for (cut, if that had to be), or an empty one when `path` is none.
[[nodiscard]] std::string_view TargetOfTemporary(std::string_view path);

}  // namespace tarrow
