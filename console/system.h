// What tarrowc asks of the system it runs on, once for Windows and once for the others. Names are UTF-8 on
// Windows and plain bytes elsewhere.
#pragma once

#include "base/byte_source.h"
#include "base/exceptions.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// How a line ends in what is printed.
extern const std::string_view kNewLine;

// What a CFileException of WriteTo names as its file.
inline constexpr std::string_view kStandardOutput = "standard output";

// Nothing reads any more what is written.
class BrokenPipe final : public CFileException {
 public:
  BrokenPipe() : CFileException(FileCause::kGeneric, std::string(kStandardOutput)) {}
};

enum class Stream { kInput, kOutput, kError };

// Sees to it that a file which is opened later does not take the place of a standard stream that is closed:
// reading from it and writing to it keeps failing. To be called first.
void KeepStandardStreamsApart();

// The arguments behind the program's name.
std::vector<std::string> ProgramArguments(int argc, char** argv);

// `names` with the wildcards expanded that the shell of the system leaves to programs, if it does.
std::vector<std::string> ExpandNames(const std::vector<std::string>& names);

// Opens a file for reading, "-" being the standard input. Throws CFileException.
std::unique_ptr<ByteSource> OpenInput(const std::string& name);

// Whether the file `name`, opened for reading, is the one that the standard output goes to.
bool IsAlsoOutput(const std::string& name);

// Writes all of `bytes`. Throws CFileException, and CYieldException when interrupted: then also before
// anything that would have to wait.
void WriteTo(Stream stream, std::string_view bytes);

bool IsTerminal(Stream stream);
bool IsDirectory(const std::string& name);

// The directory that relative names start from, with a separator at its end; empty when it is unknown.
std::string CurrentDirectory();
std::string FullName(const std::string& name);

// From the first call on, Ctrl+C is only noted, to be found by Interrupted(); pressed again, it ends the
// program at once.
void CatchInterrupts();
bool Interrupted();

}  // namespace tarrow
