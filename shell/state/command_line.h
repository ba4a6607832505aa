// What the user asked for on the command line.
//
// Any text is accepted: an option that is not known, or lacks what it needs, is left out of account.
#pragma once

#include "ui/settings/global_settings.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

struct CommandLineOptions {
  std::optional<ArrangeMode> arrange;  // -a: how to lay the windows out, before what the settings say
  bool editorOnly = false;             // -e: no project features
  bool print = false;                  // -p: print the files and end
  std::string workingDirectory;        // -d
  std::string initFile;                // -i: the initialisation file, or the directory that holds it
  std::string files;                   // names and patterns as they stand, for CFileDir
};

// Options are words that begin with "-" or "/", up to the first word that does not: there the files begin,
// and reach to the end of the line. A letter counts in either case, and only the last of several uses of it.
// What follows the letter in its word is ignored, except the arrangement behind -a (v, h, c, m) and a name
// glued to -d or -i, which otherwise is the next word. Double quotes hold a name with blanks together.
[[nodiscard]] CommandLineOptions ParseCommandLine(std::string_view line);

// The part of a whole command line that follows the name of the program.
[[nodiscard]] std::string_view SkipProgramName(std::string_view line);

}  // namespace tarrow
