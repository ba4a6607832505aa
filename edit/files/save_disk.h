// The real disk, as saving needs it.
#pragma once

#include "edit/files/safe_save.h"

namespace tarrow {

class WindowsSaveDisk final : public SaveDisk {
 public:
  // How a file comes by its new bytes.
  enum class Way {
    kReplace,    // the system exchanges the files, keeping what belongs to the old one
    kMove,       // the new file is moved over the old one
    kOverwrite,  // it stays the same file
  };

  // For the files of the user. Under Wine they are overwritten: replaced, a file would lose its Unix mode,
  // and a symbolic link its being one, neither of which a program can see there.
  [[nodiscard]] static Way ForTexts();

  // For the files of the program, of which nobody must ever find half: under Wine only a move is one step.
  [[nodiscard]] static Way ForSettings();

  explicit WindowsSaveDisk(Way way = ForTexts()) : way_(way) {}

  Target Resolve(const std::string& path) override;
  std::string MakeTemporary(const std::string& path) override;
  std::vector<std::string> Temporaries(const std::string& path) override;
  std::unique_ptr<DiskFile> Open(const std::string& path, Access access) override;
  void Replace(const std::string& from, const std::string& to, const std::string& backup) override;
  void Move(const std::string& from, const std::string& to) override;
  void Copy(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;

 private:
  void MoveOver(const std::string& from, const std::string& to, const std::string& backup);

  Way way_;
};

}  // namespace tarrow
