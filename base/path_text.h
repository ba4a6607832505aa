// The parts of a path, by its text alone: nothing here asks the disk.
//
// Paths are UTF-8. Components are separated by backslashes; a slash counts as one where it is met, since the
// platform takes it and no name holds one. A drive ("c:") ends like a directory: "c:x" is x in the current
// directory of c.
#pragma once

#include <string>
#include <string_view>

namespace tarrow {

// A full path has fewer characters (UTF-16 units) than this, everywhere in the program.
inline constexpr std::size_t kMaxPath = 260;

// The length of the part up to and including the last separator, or else the drive's colon; 0 for a bare
// name.
[[nodiscard]] std::size_t DirectoryLength(std::string_view path);

// That part, and what follows it.
[[nodiscard]] std::string_view DirectoryPart(std::string_view path);
[[nodiscard]] std::string_view FileNamePart(std::string_view path);

// `path` without the separators at its end, except the one of a root ("\", "c:\").
[[nodiscard]] std::string_view WithoutTrailingSeparators(std::string_view path);

// `directory` and `name` with one separator between them; the name alone when the directory is empty.
[[nodiscard]] std::string JoinPath(std::string_view directory, std::string_view name);

// `name` as seen from `directory`: joined to it, unless it says by itself where it begins (on a drive, a
// server, or at the root of the current drive).
[[nodiscard]] std::string PathFrom(std::string_view directory, std::string_view name);

// Everything from the last "." on replaced by `extension` (with its dot), or that added when there is none.
// The dot is looked for in the whole path, directories included: the rule by which backups have always been
// named.
[[nodiscard]] std::string ReplaceAfterLastDot(std::string_view path, std::string_view extension);

// `path` as it is shown to someone who works in `directory`: without that directory and the separator behind
// it when it begins with them, else whole.
[[nodiscard]] std::string_view NameSeenFrom(std::string_view directory, std::string_view path);

// Whether two texts are equal but for the case of ASCII letters.
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace tarrow
