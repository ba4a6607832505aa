#include "edit/recovery/journal_output.h"

#include "edit/recovery/journal_format.h"

namespace tarrow {

std::optional<FileCause> JournalOutput::Failure() const {
  int cause = failure_;
  if (cause < 0) return {};
  return static_cast<FileCause>(cause);
}

// What a failure has cut is taken off the file again where that is still possible; a reader does the same.
template <typename Action>
void JournalOutput::Try(Action action) noexcept {
  if (failure_ >= 0) return;
  FileCause cause = FileCause::kGeneric;
  try {
    return action();
  } catch (const CFileException& error) {
    cause = error.Cause();
  } catch (...) {  // memory
  }
  failure_ = static_cast<int>(cause);
  try {
    if (!file_) return;
    file_->Seek(size_);
    file_->Truncate();
  } catch (...) {
  }
}

void JournalOutput::Begin() {
  file_ = disk_->Create(name_);
  std::string beginning = EncodeJournalBeginning();
  file_->Write(beginning);
  size_ = beginning.size();
}

void JournalOutput::WriteFrame(std::string_view head, std::string_view rest) noexcept {
  Try([&] {
    if (!file_) Begin();
    std::string front = EncodeFrameHeader(frames_, head, rest).append(head);
    file_->Write(front);
    if (!rest.empty()) file_->Write(rest);
    size_ += front.size() + rest.size();
    ++frames_;
  });
}

void JournalOutput::Commit() noexcept {
  Try([&] {
    file_->Flush();
    isWhole_ = true;
  });
}

// A file that cannot be removed is emptied, which tells a reader as much.
void JournalOutput::Remove() noexcept {
  auto file = std::move(file_);
  if (!file) return;
  try {
    file->Remove();
  } catch (...) {
    try {
      file->Seek(0);
      file->Truncate();
    } catch (...) {
    }
  }
}

}  // namespace tarrow
