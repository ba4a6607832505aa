// The three calls by which a platform gives out address space and memory; all else is ReservedMemory's.
#pragma once

#include <cstddef>

namespace tarrow {

// Addresses without memory behind them; null when there are none. `bytes` is a multiple of 64 KiB.
char* ReservePages(std::size_t bytes);

// Puts zeroed memory behind reserved addresses; false when there is none.
bool CommitPages(char* at, std::size_t bytes);

// Gives back a whole reservation.
void ReleasePages(char* at, std::size_t bytes);

}  // namespace tarrow
