// What projexec is called with, and what a command line asks for, by its text alone.
//
// Nothing here allocates or throws: the program has no C run-time.
#pragma once

#include <string_view>

namespace tarrow {

struct WrapperCall {
  std::wstring_view output;   // the file that takes the output
  std::wstring_view command;  // exactly as it was given
};

// Takes the command line of the wrapper itself apart: its own name, the output file, both perhaps in quotes,
// a blank, and the command. What is missing is empty; a command of blanks is none.
[[nodiscard]] WrapperCall ReadWrapperCall(std::wstring_view line);

// The first word of a command, without quotes.
[[nodiscard]] std::wstring_view FirstWord(std::wstring_view command);

// Whether `text` ends with `end`, whatever the case of ASCII letters.
[[nodiscard]] bool EndsLike(std::wstring_view text, std::wstring_view end);

// Whether the command is one that the command interpreter has in itself: "copy a b", "dir/b", "@echo.",
// "(if".
[[nodiscard]] bool IsInterpreterCommand(std::wstring_view command);

}  // namespace tarrow
