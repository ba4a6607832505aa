// The directories that the program lives among: the current one, the system's for temporary files, the user's
// for settings, and the program's own; and names for temporary files.
//
// Paths are UTF-8. Operations throw CFileException naming the path.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tarrow {

// The current directory, in lower case, without a backslash at its end except for a root.
[[nodiscard]] std::string WorkingDirectory();

// Makes a directory (and its drive) current. Throws.
void ChangeWorkingDirectory(std::string_view path);

// The system's directory for temporary files, with a backslash at its end.
[[nodiscard]] std::string TemporaryDirectory();

// The user's folder for the settings of programs, with a backslash at its end; empty when there is none.
[[nodiscard]] std::string ApplicationDataDirectory();

// The user's folder for what programs keep on this machine, in the same form.
[[nodiscard]] std::string LocalDataDirectory();

// The full path of the running program.
[[nodiscard]] std::string ProgramPath();

// Creates an empty file under a name that no file has: `nameOf` makes a path of a number, and is asked again
// with another one while there is a file already. Returns the path.
[[nodiscard]] std::string CreateUniqueFile(const std::function<std::string(std::uint32_t)>& nameOf);

// A name in the system's directory for temporary files that no file has; the empty file is created, so that
// the name stays free for the caller. A given extension of three characters takes the place of the name's
// own.
[[nodiscard]] std::string MakeTempName(std::string_view extension = {});

}  // namespace tarrow
