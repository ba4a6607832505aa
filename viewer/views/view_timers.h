// The timers of a view.
#pragma once

#include <windows.h>

namespace tarrow {

inline constexpr UINT_PTR kDragTimer = 1;   // selecting beyond the edge
inline constexpr UINT_PTR kWatchTimer = 2;  // looking at the file

}  // namespace tarrow
