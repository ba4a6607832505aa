// What a save that was killed has left beside its file: finding out whether the file is whole.
//
// A temporary file is of use only while its file is being overwritten in place. Just before the first byte of
// the file is touched, the temporary file, which is whole on the disk by then, gets a seal behind its text.
// So one without a seal may be anything, but its file has not been touched; one with a seal is whole, and its
// file is whole only if it holds the same.
#pragma once

#include "edit/files/safe_save.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tarrow {

// Puts the seal behind the text of a temporary file that is whole on the disk, and hands it to the disk.
void Seal(DiskFile& temporary, std::uint64_t size);

// The size of the text of a sealed file; nothing when it is not sealed. Throws CFileException.
[[nodiscard]] std::optional<std::uint64_t> SealedSize(DiskFile& temporary);

// The whole text of a file that is not whole itself: the first `size` bytes of `path`.
struct WholeText {
  std::string path;
  std::uint64_t size;
};

// Looks after the file `path`, which exists: where overwriting it was broken off, where its whole text lies;
// temporary files that nobody needs are removed. One that is in use or cannot be read is left alone.
[[nodiscard]] std::optional<WholeText> FindWholeText(SaveDisk& disk, const std::string& path);

// The file `path` has been saved: removes what killed saves have left beside it and its backup. Not for a
// file that two programs may save at the same moment: that of the other one has no seal yet, either.
void RemoveLeftovers(SaveDisk& disk, const std::string& path);

}  // namespace tarrow
