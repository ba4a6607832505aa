// The disk as journals need it: files of the program's own, each of which one running program holds.
//
// A file that is open belongs to whoever opened it: nobody else can open or remove it until it is closed, be
// it by the end of the program, however that came. Functions throw CFileException.
#pragma once

#include "base/disk_file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarrow {

class JournalFile : public DiskFile {
 public:
  // Removes the file from the disk, and closes it.
  virtual void Remove() = 0;
};

class JournalDisk {
 public:
  virtual ~JournalDisk() = default;

  // Creates a file that was not there.
  [[nodiscard]] virtual std::unique_ptr<JournalFile> Create(const std::string& name) = 0;

  // Opens every journal that nobody holds. One that cannot be opened, for whatever reason, is left out.
  [[nodiscard]] virtual std::vector<std::unique_ptr<JournalFile>> Claim() = 0;

  // The time: 100 nanoseconds since 1601, UTC.
  [[nodiscard]] virtual std::uint64_t Now() = 0;
};

}  // namespace tarrow
