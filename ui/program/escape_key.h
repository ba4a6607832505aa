// The Escape key as the way out of a long operation that dispatches no messages.
#pragma once

namespace tarrow {

// What was pressed before counts for nothing.
void ForgetEscape();

// Whether Escape has been pressed since; the key is used up by that.
[[nodiscard]] bool TakeEscape();

}  // namespace tarrow
