// What the program is running on, where that makes a difference that no function tells.
#pragma once

namespace tarrow {

[[nodiscard]] bool IsWine();

// Whether the user has asked the system for high contrast, where nobody chooses colours of his own.
[[nodiscard]] bool IsHighContrast();

}  // namespace tarrow
