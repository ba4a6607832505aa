// Include lines: the name that such a line asks for, and where the file is sought.
//
// Strings are UTF-8; nothing here asks the disk.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct IncludeName {
  std::string name;
  bool tryAsWritten = false;  // before any directory
};

// The name on a line such as "#include <stdio.h>", "#include_next "a.h"" or "!include rules.mak"; nothing
// when the line is none of them or names nothing.
[[nodiscard]] std::optional<IncludeName> ReadIncludeLine(std::string_view line);

// The paths to try, in order. The directories are separated by ";", those of the project's option first and
// then those of the environment variable.
[[nodiscard]] std::vector<std::string> IncludeCandidates(const IncludeName& include, std::string_view option,
                                                         std::string_view variable);

}  // namespace tarrow
