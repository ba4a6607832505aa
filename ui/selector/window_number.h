// The numbers of the windows in the window selector: they count from 1 in the order of its list.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

// The digits of `text`, in their order.
[[nodiscard]] std::string DigitsOf(std::string_view text);

// The number that `text` names, if it is one of 1 to `count`.
[[nodiscard]] std::optional<int> ReadWindowNumber(std::string_view text, int count);

// The number `step` further than `number`, going round; 0 when there are no windows.
[[nodiscard]] int StepWindowNumber(int number, int step, int count);

}  // namespace tarrow
