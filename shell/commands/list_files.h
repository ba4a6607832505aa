// The file lists of the program (CFileDir), for rooms that do not know the room in which they are made.
#pragma once

#include <string>
#include <vector>

namespace tarrow {

// The sorted full paths that names and wildcard patterns find; the first name may be their directory.
[[nodiscard]] std::vector<std::string> ListFiles(const std::vector<std::string>& names);

}  // namespace tarrow
