// The real disk as the file manager needs it.
#pragma once

#include "framework/file_system.h"
#include "tools/file_manager/file_disk.h"
#include "tools/file_manager/recycle_bin.h"

namespace tarrow {

class WindowsFileDisk final : public FileDisk {
 public:
  std::optional<std::uint32_t> Attributes(std::string_view path) override { return lookup_.Attributes(path); }
  bool IsDriveKnown(char letter) override { return lookup_.IsDriveKnown(letter); }
  std::optional<std::string> FullPath(std::string_view path) override { return lookup_.FullPath(path); }
  void Find(std::string_view pattern, Progress* progress, const EntryUse& use) override {
    lookup_.Find(pattern, progress, use);
  }
  std::string Lower(std::string_view path) override { return lookup_.Lower(path); }
  std::string LowerLetters(std::string_view name) override { return lookup_.LowerLetters(name); }

  std::optional<FileState> State(const std::string& path) override;
  bool IsSame(const std::string& a, const std::string& b) override { return SameFile(a, b); }
  std::string MakeTemporary(const std::string& path) override;
  void Copy(const std::string& from, const std::string& to, Progress& progress) override;
  bool Move(const std::string& from, const std::string& to, bool replace) override;
  void Remove(const std::string& path) override { RemoveFile(path); }
  void Recycle(const std::string& path) override;

  // What recycling a file in this directory comes to.
  [[nodiscard]] static DriveFacts Drive(const std::string& directory);

  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    ChangeAttributes(path, attributes);
  }
  void SetModified(const std::string& path, std::uint64_t time) override { ChangeModifiedTime(path, time); }

 private:
  DiskLookup lookup_;
};

}  // namespace tarrow
