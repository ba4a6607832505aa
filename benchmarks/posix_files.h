// Files of this machine, as the engines take them: for benchmarks that load and save real files.
#pragma once

#include "edit/files/safe_save.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

namespace tarrow::bench {

class PosixFile final : public DiskFile {
 public:
  PosixFile(const std::string& path, int flags) : path_(path), file_(::open(path.c_str(), flags, 0666)) {
    Require(file_ >= 0);
  }
  ~PosixFile() override {
    if (file_ >= 0) ::close(file_);
  }
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;

  std::size_t Read(std::span<char> into) override {
    std::size_t total = 0;
    while (total < into.size()) {
      ssize_t n = ::read(file_, into.data() + total, into.size() - total);
      Require(n >= 0);
      if (n == 0) break;
      total += static_cast<std::size_t>(n);
    }
    return total;
  }
  void Seek(std::uint64_t at) override { Require(::lseek(file_, static_cast<off_t>(at), SEEK_SET) >= 0); }
  std::uint64_t Size() override {
    struct stat status {};
    Require(::fstat(file_, &status) == 0);
    return static_cast<std::uint64_t>(status.st_size);
  }
  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      ssize_t n = ::write(file_, bytes.data(), bytes.size());
      Require(n >= 0);
      bytes.remove_prefix(static_cast<std::size_t>(n));
    }
  }
  void Truncate() override { Require(::ftruncate(file_, ::lseek(file_, 0, SEEK_CUR)) == 0); }
  void Flush() override { Require(::fsync(file_) == 0); }
  void Close() override { Require(::close(std::exchange(file_, -1)) == 0); }

 private:
  void Require(bool done) const {
    if (!done) throw CFileException(FileCauseFromErrno(errno), path_);
  }

  std::string path_;
  int file_;
};

// Replaces files by renaming.
class PosixSaveDisk final : public SaveDisk {
 public:
  Target Resolve(const std::string& path) override {
    return {path, ::access(path.c_str(), F_OK) == 0 ? Kind::kFile : Kind::kNothing};
  }
  std::string MakeTemporary(const std::string& path) override {
    std::string name = path + ".new";
    PosixFile(name, O_CREAT | O_WRONLY).Close();
    return name;
  }
  std::vector<std::string> Temporaries(const std::string&) override { return {}; }
  std::unique_ptr<DiskFile> Open(const std::string& path, Access access) override {
    return std::make_unique<PosixFile>(path, access == Access::kRead ? O_RDONLY : O_RDWR);
  }
  void Replace(const std::string& from, const std::string& to, const std::string&) override {
    Move(from, to);
  }
  void Move(const std::string& from, const std::string& to) override {
    if (std::rename(from.c_str(), to.c_str()) != 0) throw CFileException(FileCauseFromErrno(errno), to);
  }
  void Copy(const std::string&, const std::string& to) override {
    throw CFileException(FileCause::kGeneric, to);
  }
  void Remove(const std::string& path) override { ::unlink(path.c_str()); }
};

}  // namespace tarrow::bench
