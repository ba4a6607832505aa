// The command lines of the project's commands, made of its options.
//
// Texts are UTF-8. A blank stands between two parts even where one of them is empty, and none stands before
// the libraries that every link takes: a list for release or debug that is not empty runs into them. That is
// how the options of old projects are written, so it stays.
#pragma once

#include "ui/program/project_options.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarrow {

// A command line with fewer characters (UTF-16 units) than this is given to a compiler as it is.
inline constexpr std::size_t kCommandLimit = 1025;

// What the command lines are made of, besides the file at hand.
struct CommandSource {
  const ProjectOptions& options;
  bool debugBuild = false;
  std::string target{};  // of the link, the debugger and the test
  std::string testArguments{};
};

// The extension of a path with its dot, which is what tells a compiler from a resource compiler. Empty when
// it has none, or one without a letter: such a file cannot be compiled.
[[nodiscard]] std::string_view CompileExtension(std::string_view path);

struct CompileCommand {
  std::string program;
  std::string arguments;
  std::string path;  // in quotes when it holds a blank

  bool NeedsResponseFile() const;

  // The command line; `responseFile` is where ResponseText() stands, if that is needed.
  std::string Line(std::string_view responseFile = {}) const;
  std::string ResponseText() const { return arguments + ' ' + path + "\r\n"; }
};

[[nodiscard]] CompileCommand MakeCompileCommand(const CommandSource& source, std::string_view path);
[[nodiscard]] std::string LinkCommand(const CommandSource& source);
[[nodiscard]] std::string BuildCommand(const CommandSource& source);
[[nodiscard]] std::string BuildTargetCommand(const CommandSource& source, std::string_view buildTarget);
[[nodiscard]] std::string DebugCommand(const CommandSource& source);
[[nodiscard]] std::string TestCommand(const CommandSource& source);

// What starts a command with its output in a file: the wrapper is in the directory `nt` of `home`.
[[nodiscard]] std::string WrapperPath(std::string_view home);
[[nodiscard]] std::string WrapperCommand(std::string_view home, std::string_view outputFile,
                                         std::string_view command);

}  // namespace tarrow
