// Key bindings as the platform's accelerator table, and back.
#pragma once

#include "framework/handle.h"
#include "ui/key_bindings.h"

#include <span>
#include <vector>

namespace tarrow {

// Empty when the table could not be made.
[[nodiscard]] AcceleratorHandle CreateAccelerators(std::span<const KeyBinding> bindings);

// The bindings of a live table, in its order.
[[nodiscard]] std::vector<KeyBinding> BindingsOf(HACCEL accelerators);

}  // namespace tarrow
