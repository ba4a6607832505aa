// A disk for journals in memory: it can fail at any step, and shows at every step what a power cut would
// leave.
#pragma once

#include "base/exceptions.h"
#include "edit/recovery/journal_disk.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace tarrow {

class MemoryJournalDisk final : public JournalDisk {
 public:
  using Files = std::map<std::string, std::string>;

  std::unique_ptr<JournalFile> Create(const std::string& name) override {
    Step();
    if (files.contains(name)) throw CFileException(FileCause::kAccessDenied, name);
    files[name];
    return std::make_unique<File>(*this, name);
  }

  std::vector<std::unique_ptr<JournalFile>> Claim() override {
    std::vector<std::unique_ptr<JournalFile>> claimed;
    for (const auto& [name, bytes] : files)
      if (!held_.contains(name)) claimed.push_back(std::make_unique<File>(*this, name));
    return claimed;
  }

  std::uint64_t Now() override { return now; }

  Files files;
  std::uint64_t now = 1'000'000'000;
  std::optional<int> failAt;               // the step that fails, and all behind it
  std::function<void(const Files&)> seen;  // what is on the disk, after every step
  int steps = 0;

 private:
  class File final : public JournalFile {
   public:
    File(MemoryJournalDisk& disk, std::string name) : disk_(disk), name_(std::move(name)) {
      disk_.held_.insert(name_);
    }
    ~File() override { disk_.held_.erase(name_); }
    std::size_t Read(std::span<char> into) override {
      const std::string& bytes = Bytes();
      std::size_t n = at_ < bytes.size() ? std::min(into.size(), bytes.size() - at_) : 0;
      if (n) std::memcpy(into.data(), bytes.data() + at_, n);
      at_ += n;
      return n;
    }
    void Seek(std::uint64_t position) override { at_ = static_cast<std::size_t>(position); }
    std::uint64_t Size() override { return Bytes().size(); }
    void Write(std::string_view bytes) override {
      bool fails = disk_.Fails();
      Bytes().resize(at_);
      Bytes().append(bytes.substr(0, fails ? bytes.size() / 2 : bytes.size()));  // a full disk takes some
      at_ = Bytes().size();
      disk_.Step();
    }
    void Truncate() override { Bytes().resize(at_); }
    void Flush() override { disk_.Step(); }
    void Close() override {}
    void Remove() override {
      disk_.Step();
      disk_.files.erase(name_);
      disk_.Show();
    }

   private:
    std::string& Bytes() { return disk_.files[name_]; }

    MemoryJournalDisk& disk_;
    std::string name_;
    std::size_t at_ = 0;
  };

  bool Fails() const { return failAt && steps >= *failAt; }
  void Show() const {
    if (seen) seen(files);
  }
  void Step() {
    Show();
    bool fails = Fails();
    ++steps;
    if (fails) throw CFileException(FileCause::kDiskFull, "journal");
  }

  std::set<std::string> held_;
};

}  // namespace tarrow
