// ProjectStore: the settings of the open project, between the rooms and the store.
#pragma once

#include "project/options/project_settings.h"
#include "shell/state/settings.h"

namespace tarrow {

class ProjectStore final : public ProjectSettings {
 public:
  // All of them outlive the object.
  ProjectStore(SettingsFiles& files, CProfileStore& store, ProgramSettings& settings,
               const std::string& homeDirectory)
      : files_(files), store_(store), settings_(settings), home_(homeDirectory) {}

  std::string Option(ProjectOption option) const override;

  std::string Directory() const override { return settings_.project.directory; }
  std::vector<std::string> RecentProjects() const override { return settings_.recentProjects.Names(); }
  bool DebugBuild() const override { return settings_.project.debugBuild; }
  void SetDebugBuild(bool on) override { settings_.project.debugBuild = on; }
  int Environment() const override { return settings_.project.environment; }
  void SetEnvironment(int environment) override { settings_.project.environment = environment; }
  void WriteOption(std::string_view key, std::string_view value) override;
  void RemoveOption(std::string_view key, bool inFile) override;
  std::string ProjectValue(int key) const override;
  void WriteProjectValue(int key, std::string_view value) override;
  const std::string& HomeDirectory() const override { return home_; }

 private:
  int Section() const { return kFirstOptionSection + Environment(); }

  SettingsFiles& files_;
  CProfileStore& store_;
  ProgramSettings& settings_;
  const std::string& home_;
};

}  // namespace tarrow
