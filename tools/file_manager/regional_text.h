// Numbers and times as the user's regional settings write them.
#pragma once

#include <cstdint>
#include <string>

namespace tarrow {

// A whole number with its thousands set apart.
[[nodiscard]] std::string CountText(std::uint64_t number);

// A time (100 nanoseconds since 1601, UTC) as local date and time; empty when it is none.
[[nodiscard]] std::string TimeText(std::uint64_t time);

}  // namespace tarrow
