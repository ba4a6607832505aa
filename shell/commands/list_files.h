// The file lists of the program (CFileDir), for rooms that do not know the room in which they are made.
#pragma once

#include "base/progress.h"

#include <string>
#include <vector>

namespace tarrow {

// The sorted full paths that names and wildcard patterns find; the first name may be their directory.
// Polls `progress` and lets its CYieldException through.
[[nodiscard]] std::vector<std::string> ListFiles(const std::vector<std::string>& names, Progress& progress);

}  // namespace tarrow
