// Directories for new projects.
#pragma once

#include <string>

namespace tarrow {

// Makes a directory (a full path), and those above it that are missing. Throws CFileException, a bad path,
// when one of them cannot be made.
void MakeDirectoryWithParents(const std::string& directory);

}  // namespace tarrow
