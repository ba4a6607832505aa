// What the program is running on, where that makes a difference that no function tells.
#pragma once

namespace tarrow {

[[nodiscard]] bool IsWine();

}  // namespace tarrow
