// A look at a file on the disk.
#pragma once

#include "edit/files/known_file.h"

#include <string>

namespace tarrow {

// Looks at the file that a path (UTF-8) leads to, through links. It waits for the disk, however long that
// takes.
[[nodiscard]] FileLook LookAtFile(const std::string& path);

// Whether a full path lies on a disk of this computer: one that answers, or fails, soon.
[[nodiscard]] bool IsOnLocalDisk(const std::string& path);

}  // namespace tarrow
