// Help on the word at the caret: which word that is, which of the two helps is asked, and what is started.
//
// An option names each help: "$" and a file for the platform's help viewer, or a program with a format for
// its parameters in which %s stands for the word. Strings are UTF-8.
#pragma once

#include "base/text_view.h"
#include "edit/text/charset.h"

#include <string>
#include <string_view>

namespace tarrow {

// The word at or just before `caret`, with a "#" directly before it; a directive's when the caret is on its
// "#". Empty where no word is. At most 63 characters.
[[nodiscard]] std::string WordForHelp(TextView text, BytePos caret, Charset charset);

// kChoose takes the help of the environment for its keywords, and that of the system for all other words.
enum class HelpMode { kChoose, kSdk, kEnvironment };

// What kChoose comes to for a word; any other mode stays.
[[nodiscard]] HelpMode HelpModeFor(HelpMode mode, std::string_view word);

struct WordHelpRequest {
  bool isHelpFile = false;  // `name` is a file for the help viewer, else a program
  std::string name;         // empty: nothing is asked for
  std::string parameters;   // of the program
};

// Takes the value of an option apart for a word. A word of 49 characters or more goes into no parameters.
[[nodiscard]] WordHelpRequest MakeWordHelpRequest(std::string_view value, std::string_view word);

}  // namespace tarrow
