// A disk for tests of saving: files in memory, a failure or the end of the program at any step, a limit of
// space.
#pragma once

#include "edit/files/safe_save.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace tarrow {

class MemoryDisk final : public SaveDisk {
 public:
  // What the program throws when it is killed: nothing catches it, and nothing more reaches the disk.
  struct Killed {};

  std::map<std::string, std::string> files;
  std::set<std::string> inPlace;        // files that must stay the same file
  std::set<std::string> unreplaceable;  // files that cannot be replaced, found out only by trying
  bool directoryIsClosed = false;       // no new file in the directory
  std::size_t space = SIZE_MAX;         // bytes that all files together may have
  int failAt = -1;                      // the number of the step that fails (and of the one that kills)
  int killAt = -1;
  int steps = 0;

  // Whether any file, temporary ones included, holds these bytes, be it with a seal behind them.
  bool Holds(const std::string& bytes) const {
    return std::ranges::any_of(files, [&](auto& file) { return file.second.starts_with(bytes); });
  }

  Target Resolve(const std::string& path) override {
    Step();
    if (path == "device") return {path, Kind::kDevice};
    return {path, files.contains(path) ? Kind::kFile : Kind::kNothing, inPlace.contains(path)};
  }
  std::string MakeTemporary(const std::string& path) override {
    Step();
    if (!path.empty() && directoryIsClosed) throw CFileException(FileCause::kAccessDenied, path);
    std::string name = (path.empty() ? "temp" : "beside") + std::to_string(steps);
    files[name];
    if (!path.empty()) temporaries_[name] = path;
    return name;
  }
  std::vector<std::string> Temporaries(const std::string& path) override {
    std::vector<std::string> found;
    for (const auto& [name, target] : temporaries_)
      if (target == path && files.contains(name)) found.push_back(name);
    return found;
  }
  std::unique_ptr<DiskFile> Open(const std::string& path, Access) override;
  void Replace(const std::string& from, const std::string& to, const std::string& backup) override {
    Step();
    if (unreplaceable.contains(to) || (!backup.empty() && unreplaceable.contains(backup)))
      throw CFileException(FileCause::kSharingViolation, to);
    if (!backup.empty()) files[backup] = files.at(to);
    files.at(to) = files.at(from);
    files.erase(from);
  }
  void Move(const std::string& from, const std::string& to) override {
    Step();
    if (unreplaceable.contains(to)) throw CFileException(FileCause::kAccessDenied, to);
    files[to] = files.at(from);
    files.erase(from);
  }
  void Copy(const std::string& from, const std::string& to) override {
    files.at(to) = "half";
    Step();
    files.at(to) = files.at(from);
  }
  void Remove(const std::string& path) override {
    Step();
    files.erase(path);
  }

  // One more operation reaches the disk, or not.
  void Step() {
    ++steps;
    if (killAt >= 0 && steps > killAt) throw Killed();
    if (steps - 1 == failAt) throw CFileException(FileCause::kHardware, "step");
  }

 private:
  class File;

  std::map<std::string, std::string> temporaries_;  // with what they were made for
};

class MemoryDisk::File final : public DiskFile {
 public:
  File(MemoryDisk& disk, std::string path) : disk_(disk), path_(std::move(path)) {}

  std::size_t Read(std::span<char> into) override {
    disk_.Step();
    std::size_t n = at_ < Bytes().size() ? std::min(into.size(), Bytes().size() - at_) : 0;
    std::copy_n(Bytes().begin() + static_cast<std::ptrdiff_t>(at_), n, into.begin());
    at_ += n;
    return n;
  }
  void Seek(std::uint64_t position) override {
    disk_.Step();
    at_ = static_cast<std::size_t>(position);
  }
  std::uint64_t Size() override { return Bytes().size(); }
  // Half of the bytes arrive before a failure is noticed.
  void Write(std::string_view bytes) override {
    std::size_t half = std::min(bytes.size() / 2, Room());
    Put(bytes.substr(0, half));
    disk_.Step();
    bytes.remove_prefix(half);
    std::size_t rest = std::min(bytes.size(), Room());
    Put(bytes.substr(0, rest));
    if (rest < bytes.size()) throw CFileException(FileCause::kDiskFull, path_);
  }
  void Truncate() override {
    disk_.Step();
    Bytes().resize(at_);
  }
  void Flush() override { disk_.Step(); }
  void Close() override { disk_.Step(); }

 private:
  std::string& Bytes() { return disk_.files[path_]; }
  std::size_t Room() {
    std::size_t used = 0;
    for (auto& [name, bytes] : disk_.files) used += bytes.size();
    return Bytes().size() - std::min(at_, Bytes().size()) + (disk_.space > used ? disk_.space - used : 0);
  }
  void Put(std::string_view bytes) {
    if (Bytes().size() < at_ + bytes.size()) Bytes().resize(at_ + bytes.size());
    Bytes().replace(at_, bytes.size(), bytes);
    at_ += bytes.size();
  }

  MemoryDisk& disk_;
  std::string path_;
  std::size_t at_ = 0;
};

inline std::unique_ptr<DiskFile> MemoryDisk::Open(const std::string& path, Access access) {
  Step();
  if (access != Access::kDevice && !files.contains(path))
    throw CFileException(FileCause::kFileNotFound, path);
  return std::make_unique<File>(*this, path);
}

}  // namespace tarrow
