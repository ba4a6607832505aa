// JournalOutput: one journal on its way to the disk.
//
// All of it runs on the thread of the queue, but for the questions. A failure is kept and not thrown: what
// has been written before it stays good, and nothing is written any more.
#pragma once

#include "base/exceptions.h"
#include "edit/recovery/journal_disk.h"

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

class JournalOutput {
 public:
  // A new journal; its file is created with the first frame. The disk must outlive it.
  JournalOutput(JournalDisk& disk, std::string name) : disk_(&disk), name_(std::move(name)) {}

  // One that an earlier run has left behind. Nothing is written to it.
  explicit JournalOutput(std::unique_ptr<JournalFile> file) : file_(std::move(file)), isWhole_(true) {}

  // Writes a frame of these contents.
  void WriteFrame(std::string_view head, std::string_view rest) noexcept;

  // Everything so far makes a whole text: hands it to the disk itself.
  void Commit() noexcept;

  void Remove() noexcept;

  // For any thread: why writing has failed, and whether a whole text has been on the disk ever since.
  std::optional<FileCause> Failure() const;
  bool IsWhole() const { return isWhole_; }

  // Busy as long as anybody keeps what MakeBusy() returns.
  [[nodiscard]] std::shared_ptr<const bool> MakeBusy() const { return busy_; }
  bool IsBusy() const { return busy_.use_count() > 1; }

 private:
  template <typename Action>
  void Try(Action action) noexcept;
  void Begin();

  JournalDisk* disk_ = nullptr;
  std::string name_;
  std::unique_ptr<JournalFile> file_;
  std::uint64_t size_ = 0;  // up to the last good frame
  std::uint32_t frames_ = 0;
  std::atomic<bool> isWhole_ = false;
  std::atomic<int> failure_ = -1;  // a FileCause, or none
  std::shared_ptr<const bool> busy_ = std::make_shared<bool>(true);
};

}  // namespace tarrow
