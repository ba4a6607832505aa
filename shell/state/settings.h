// The settings of a run: read from the store, and written back to it and to the files.
//
// There are two files: the global one, and the one of the project that is open, whose values come over the
// global ones. While a project is open everything is written to its file, and the global one gets only which
// project that was and the list of recent projects. The files themselves are read and written through
// SettingsFiles.
#pragma once

#include "edit/lexers/palette.h"
#include "shell/state/profile_store.h"
#include "shell/state/recent_list.h"
#include "ui/program/string_ids.h"
#include "ui/settings/global_settings.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// The sections of the store by number; those from kFirstOptionSection on belong to the build environments,
// and the last one to the colours.
enum SettingsSection : int {
  kSettingsSection,
  kSessionSection,
  kProjectSection,
  kKeyBindingsSection,
  kFirstOptionSection,
  kColoursSection = kFirstOptionSection + kEnvironmentCount,
};

struct ProjectState {
  std::string directory;  // full path; empty: no project is open
  bool debugBuild = false;
  int environment = 0;  // 0 to kEnvironmentCount - 1
};

struct ProgramSettings {
  GlobalSettings global;
  RecentList recentFiles;
  RecentList recentProjects;
  ProjectState project;
  std::optional<StyleChoices> styles = StyleChoices{};  // of the parts of a text; none: all look the same
};

// The files, as the settings see them. A file that is missing or cannot be read is empty. Writing may throw
// CFileException.
class SettingsFiles {
 public:
  // While it lives, no other instance of the program that has taken its turn reads and writes the files.
  class Turn {
   public:
    virtual ~Turn() = default;
  };
  [[nodiscard]] virtual std::unique_ptr<Turn> TakeTurn() { return nullptr; }

  virtual IniText ReadGlobal() = 0;
  virtual void WriteGlobal(const IniText& text) = 0;

  // Makes the directory of a project current; false when that fails. Its file is that of the project then.
  virtual bool EnterProject(const std::string& directory) = 0;
  virtual IniText ReadProject() = 0;
  virtual void WriteProject(const IniText& text) = 0;

 protected:
  ~SettingsFiles() = default;
};

// A store of the program's sections.
[[nodiscard]] CProfileStore MakeSettingsStore(CProfileStore::AnsiDecoder decode);

// Fills `store` from the files, and `settings` from it; a value that is missing or out of range leaves what
// stands there. `restoreProject`: the project that was open last is opened again, unless one is given.
void LoadSettings(SettingsFiles& files, CProfileStore& store, bool restoreProject, ProgramSettings& settings);

// Writes `settings` to `store`, and the store to the files as they are by now: what another instance of the
// program has written stays where this run has changed nothing, but the session is that of the last to end.
// `window` is the value for the frame's placement. Throws CFileException when a file could not be written.
void SaveSettings(SettingsFiles& files, CProfileStore& store, const ProgramSettings& settings,
                  std::string_view window);

// The font of the edit windows. Its height changes its sign on reading, not on writing; that is how the files
// have always been.
[[nodiscard]] FontChoice ParseScreenFont(std::string_view value);

}  // namespace tarrow
