// The output of a tool as text for a window.
//
// Tools write in UTF-8, in the system's ANSI code page, or in its OEM code page, which is that of the
// console; nothing in the bytes says which. What is valid UTF-8 is taken for that; anything else for OEM,
// unless its letters make sense in ANSI only.
#pragma once

#include "edit/text/charset.h"

#include <string>
#include <string_view>

namespace tarrow {

enum class OutputCharset { kUtf8, kAnsi, kOem };

[[nodiscard]] OutputCharset TellOutputCharset(std::string_view bytes, const CodePage& ansi,
                                              const CodePage& oem);

// The output with CR LF at the end of every line. UTF-8 and ANSI stay the bytes that they are; of OEM, every
// character becomes UTF-8.
[[nodiscard]] std::string ToolOutputText(std::string bytes, const CodePage& ansi, const CodePage& oem);

}  // namespace tarrow
