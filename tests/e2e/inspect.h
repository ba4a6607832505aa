// What can be seen of another process's windows: their tree, texts and states, by messages.
#pragma once

#include <string>

#include "tests/e2e/json.h"

#include <windows.h>

namespace tarrow::probe {

// The text of a window or control, cut after 4096 characters; empty when its program does not answer within
// two seconds.
[[nodiscard]] std::string TextOf(HWND window);

// Sends a message and gives the answer, or -1 when the program does not answer in time.
[[nodiscard]] LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

// All visible top-level windows, from the top of the z-order, each with its visible children when asked for.
void DescribeDesktop(Json& out, bool withChildren);

// One window and all that it holds, hidden ones included.
void DescribeTree(Json& out, HWND window);

// The foreground window and the window with the focus.
void DescribeFocus(Json& out);

}  // namespace tarrow::probe
