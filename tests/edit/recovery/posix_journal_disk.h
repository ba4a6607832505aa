// Journals in a directory of this system, held by locks that end with their process.
#pragma once

#include "base/exceptions.h"
#include "edit/recovery/journal_disk.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>

namespace tarrow {

class PosixJournalFile final : public JournalFile {
 public:
  PosixJournalFile(std::string path, int flags) : path_(std::move(path)) {
    file_ = ::open(path_.c_str(), flags | O_RDWR | O_CLOEXEC, 0600);
    Check(file_ >= 0 && ::flock(file_, LOCK_EX | LOCK_NB) == 0);
  }
  ~PosixJournalFile() override { ::close(file_); }

  std::size_t Read(std::span<char> into) override {
    ssize_t n = ::read(file_, into.data(), into.size());
    Check(n >= 0);
    return static_cast<std::size_t>(n);
  }
  void Seek(std::uint64_t position) override {
    Check(::lseek(file_, static_cast<off_t>(position), SEEK_SET) >= 0);
  }
  std::uint64_t Size() override { return std::filesystem::file_size(path_); }
  void Write(std::string_view bytes) override {
    Check(::write(file_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
  }
  void Truncate() override { Check(::ftruncate(file_, ::lseek(file_, 0, SEEK_CUR)) == 0); }
  void Flush() override { Check(::fdatasync(file_) == 0); }
  void Close() override {}
  void Remove() override { Check(::unlink(path_.c_str()) == 0); }

 private:
  void Check(bool done) const {
    if (!done) throw CFileException(FileCauseFromErrno(errno), path_);
  }

  std::string path_;
  int file_ = -1;
};

class PosixJournalDisk final : public JournalDisk {
 public:
  explicit PosixJournalDisk(std::filesystem::path directory) : directory_(std::move(directory)) {}

  std::unique_ptr<JournalFile> Create(const std::string& name) override {
    return std::make_unique<PosixJournalFile>(directory_ / name, O_CREAT | O_EXCL);
  }
  std::vector<std::unique_ptr<JournalFile>> Claim() override {
    std::vector<std::unique_ptr<JournalFile>> files;
    for (const auto& entry : std::filesystem::directory_iterator(directory_))
      files.push_back(std::make_unique<PosixJournalFile>(entry.path(), 0));
    return files;
  }
  std::uint64_t Now() override {
    auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(std::chrono::nanoseconds(now).count()) / 100;
  }

 private:
  std::filesystem::path directory_;
};

}  // namespace tarrow
