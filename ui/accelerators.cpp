#include "ui/accelerators.h"

#include <algorithm>

namespace tarrow {

static_assert(kVirtualKey == FVIRTKEY && kShiftKey == FSHIFT && kControlKey == FCONTROL && kAltKey == FALT);

namespace {

// The platform marks the last entry of a table; a binding knows nothing of that.
constexpr BYTE kLastEntry = 0x80;

}  // namespace

AcceleratorHandle CreateAccelerators(std::span<const KeyBinding> bindings) {
  std::vector<ACCEL> table(bindings.size());
  std::ranges::transform(bindings, table.begin(), [](const KeyBinding& binding) {
    return ACCEL{binding.stroke.flags, binding.stroke.key, binding.command};
  });
  return AcceleratorHandle(::CreateAcceleratorTableW(table.data(), static_cast<int>(table.size())));
}

std::vector<KeyBinding> BindingsOf(HACCEL accelerators) {
  std::vector<ACCEL> table(static_cast<std::size_t>(::CopyAcceleratorTableW(accelerators, nullptr, 0)));
  ::CopyAcceleratorTableW(accelerators, table.data(), static_cast<int>(table.size()));
  std::vector<KeyBinding> bindings(table.size());
  std::ranges::transform(table, bindings.begin(), [](const ACCEL& entry) {
    auto flags = static_cast<std::uint8_t>(entry.fVirt & ~kLastEntry);
    return KeyBinding{{flags, entry.key}, static_cast<CommandId>(entry.cmd)};
  });
  return bindings;
}

}  // namespace tarrow
