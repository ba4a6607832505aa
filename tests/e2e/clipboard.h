// The clipboard's text, for the end-to-end tests.
#pragma once

#include <string>

namespace tarrow::probe {

[[nodiscard]] std::string ClipboardText();
[[nodiscard]] bool SetClipboardText(const std::string& utf8);

}  // namespace tarrow::probe
