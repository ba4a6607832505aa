// The code pages in which tools of the console read and write.
#pragma once

#include "edit/text/charset.h"

#include <string>
#include <string_view>

namespace tarrow {

// The console's page, as the system has it; its characters cannot be encoded through this object.
const CodePage& OemCodePage();

// A text (UTF-8) as a tool reads it from a file: in the console's page, or in UTF-16 with its mark when the
// page lacks one of its characters.
[[nodiscard]] std::string EncodeForTools(std::string_view text);

}  // namespace tarrow
