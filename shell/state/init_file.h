// Where the program finds its files: the home directory, and the initialisation file tarrow.ini.
//
// Paths are UTF-8. Nothing is opened here; a file that cannot be used is found out by who reads it.
#pragma once

#include "base/file_lookup.h"

#include <string>
#include <string_view>

namespace tarrow {

inline constexpr std::string_view kInitFileName = "tarrow.ini";

// The directory of the program's files, ending in a backslash, from the full path of the program: its own
// directory, or that one's parent when the path to it ends in "nt\". The letters count in lower case only,
// and nothing before them is looked at ("d:\print\" gives "d:\pri", and files like "d:\pritarrow.ini"): the
// rule that installations rely on. The names of files are put right behind it.
[[nodiscard]] std::string HomeDirectory(std::string_view programPath);

// The full path of the initialisation file to use. `named` is what the command line gave, or empty: a file,
// or a directory that holds one; when it does not exist, the directory part of it stands for it. Otherwise it
// is the current directory's, if that one is an ordinary file, and else the home directory's.
[[nodiscard]] std::string FindInitFile(FileLookup& files, std::string_view named,
                                       std::string_view homeDirectory);

}  // namespace tarrow
