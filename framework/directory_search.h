// The entries of a directory, as the disk gives them, one after the other.
#pragma once

#include "base/file_lookup.h"
#include "base/progress.h"

#include <string>

namespace tarrow {

// Calls `use` for everything that `pattern`, a path with wildcards in its last component, finds; for nothing
// when it finds nothing, or is empty. What `use` throws ends the search.
void SearchDirectory(const std::wstring& pattern, const EntryUse& use);

// The same, with the disk asked on a thread of its own: `progress` is polled however long the disk is silent,
// and what it throws ends the search at once. The thread is left to itself then; it ends when the disk has
// answered. `use` is called on the caller's thread.
void SearchDirectory(const std::wstring& pattern, Progress& progress, const EntryUse& use);

}  // namespace tarrow
