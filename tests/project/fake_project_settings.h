// The settings of a project under test: options and values that a test puts there.
#pragma once

#include "project/options/options.h"
#include "project/options/project_settings.h"

#include <map>

namespace tarrow {

class FakeProjectSettings final : public ProjectSettings {
 public:
  std::string directory;
  std::vector<std::string> recent;
  bool debugBuild = false;
  int environment = kEnvironmentCount - 1;
  std::map<std::pair<int, std::string>, std::string, std::less<>> stored;  // by environment and key
  std::map<int, std::string> values;
  std::string home;

  std::string Option(ProjectOption option) const override {
    auto found = stored.find(std::pair(environment, std::string(OptionKey(option))));
    return found != stored.end() ? found->second : std::string(OptionPreset(option, environment));
  }
  std::string Directory() const override { return directory; }
  std::vector<std::string> RecentProjects() const override { return recent; }
  bool DebugBuild() const override { return debugBuild; }
  void SetDebugBuild(bool on) override { debugBuild = on; }
  int Environment() const override { return environment; }
  void SetEnvironment(int number) override { environment = number; }
  void WriteOption(std::string_view key, std::string_view value) override {
    stored[{environment, std::string(key)}] = value;
  }
  void RemoveOption(std::string_view key, bool) override { stored.erase({environment, std::string(key)}); }
  std::string ProjectValue(int key) const override {
    auto found = values.find(key);
    return found == values.end() ? std::string() : found->second;
  }
  void WriteProjectValue(int key, std::string_view value) override { values[key] = value; }
  const std::string& HomeDirectory() const override { return home; }
};

class FakeSwitching final : public ProjectSwitching {
 public:
  std::vector<std::string> changes;

  bool ChangeProject(const std::string& directory) override {
    changes.push_back(directory);
    return true;
  }
};

}  // namespace tarrow
