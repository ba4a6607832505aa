// A program to be started: its command line, and whether it looks like one that can be.
//
// Strings are UTF-8. Nothing is started here.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tarrow {

struct RunRequest {
  std::string commandLine;
  bool minimised = false;
  bool valid = false;  // the command line names an executable that exists
};

// Makes a request of a command line: the program's name runs to the first blank, or to the closing quote when
// it begins with one; a name without an extension gets ".EXE". It is valid when its extension is that of an
// executable and `exists` finds the name.
[[nodiscard]] RunRequest MakeRunRequest(std::string_view commandLine,
                                        const std::function<bool(const std::string& name)>& exists);

// The program's name of a request's command line, without quotes.
[[nodiscard]] std::string ProgramName(std::string_view commandLine);

}  // namespace tarrow
