// ProjectSettings: what the room reads and writes of the settings of the program and of the open project.
//
// The shell implements it. Everything reaches the files when the settings are saved. Strings are UTF-8.
#pragma once

#include "ui/program/project_options.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class ProjectSettings : public ProjectOptions {
 public:
  // The directory of the open project in full, in lower case; empty: none is open.
  virtual std::string Directory() const = 0;

  // Most recent first.
  virtual std::vector<std::string> RecentProjects() const = 0;

  virtual bool DebugBuild() const = 0;
  virtual void SetDebugBuild(bool on) = 0;

  // The build environment (0 to kEnvironmentCount - 1), whose options are read and written.
  virtual int Environment() const = 0;
  virtual void SetEnvironment(int environment) = 0;

  // Stores an option, which may be empty; a key that no option has is kept all the same. A removed one has
  // its preset again; `inFile`: it goes from the project's file at once.
  virtual void WriteOption(std::string_view key, std::string_view value) = 0;
  virtual void RemoveOption(std::string_view key, bool inFile) = 0;

  // A value of the project itself (kTextKeyTarget ...); empty when none is stored.
  virtual std::string ProjectValue(int key) const = 0;
  virtual void WriteProjectValue(int key, std::string_view value) = 0;

  // Where the program stands, with a backslash at its end.
  virtual const std::string& HomeDirectory() const = 0;

 protected:
  ~ProjectSettings() = default;
};

// What opens and leaves projects.
class ProjectSwitching {
 public:
  // Asks every window whether it may close; if all may, opens the project in `directory` (full, lower case;
  // empty: leaves the open one) with its settings and its session. False when a window refused.
  virtual bool ChangeProject(const std::string& directory) = 0;

 protected:
  ~ProjectSwitching() = default;
};

}  // namespace tarrow
