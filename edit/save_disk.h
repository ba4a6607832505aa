// The real disk, as saving needs it.
#pragma once

#include "edit/safe_save.h"

namespace tarrow {

class WindowsSaveDisk final : public SaveDisk {
 public:
  // Under Wine a file is never replaced: it would lose its Unix mode, and a symbolic link its being one,
  // neither of which a program can see there. `mayReplace` lets a test have it done all the same.
  WindowsSaveDisk();
  explicit WindowsSaveDisk(bool mayReplace) : mayReplace_(mayReplace) {}

  Target Resolve(const std::string& path) override;
  std::string MakeTemporary(const std::string& path) override;
  std::unique_ptr<DiskFile> Open(const std::string& path, Access access) override;
  void Replace(const std::string& from, const std::string& to, const std::string& backup) override;
  void Move(const std::string& from, const std::string& to) override;
  void Copy(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;

 private:
  bool mayReplace_;
};

}  // namespace tarrow
