// The journals on the real disk: in the user's local application data, never on a network.
#pragma once

#include "edit/recovery/journal_disk.h"

namespace tarrow {

class WindowsJournalDisk final : public JournalDisk {
 public:
  // `directory` ends in a backslash; it is made with the first journal.
  explicit WindowsJournalDisk(std::string directory) : directory_(std::move(directory)) {}

  // Where the journals of the user are: a directory on a disk of this machine, or an empty string.
  [[nodiscard]] static std::string UsersDirectory();

  std::unique_ptr<JournalFile> Create(const std::string& name) override;
  std::vector<std::unique_ptr<JournalFile>> Claim() override;
  std::uint64_t Now() override;

 private:
  std::string directory_;
};

}  // namespace tarrow
