// The files of the settings on the real disk.
#pragma once

#include "shell/state/settings_location.h"

#include <string>

namespace tarrow {

class WindowsSettingsDisk final : public SettingsDisk {
 public:
  std::optional<std::string> Read(const std::string& path) override;
  void Write(const std::string& path, const std::string& bytes) override;
  bool CanWrite(const std::string& path) override;
  bool Enter(const std::string& directory) override;
};

// The settings of the running program.
class DiskSettingsFiles final : public SettingsLocation {
 public:
  DiskSettingsFiles() : SettingsLocation(disk_) {}

  // The global file. When it is the one beside the program, or a directory, a file in the user's folder for
  // the settings of programs stands in for it where it cannot be written.
  void SetGlobalFile(const std::string& path);

  // Waits for the others, but not for long: one that hangs must not keep the settings of the rest from being
  // saved.
  std::unique_ptr<Turn> TakeTurn() override;

 private:
  WindowsSettingsDisk disk_;
};

}  // namespace tarrow
