#include "shell/commands/project_switch.h"

#include "base/path_text.h"
#include "framework/directories.h"
#include "ui/program/private_messages.h"
#include "ui/settings/font_choice.h"
#include "ui/settings/global_settings_form.h"

namespace tarrow {

constinit const MessageMap ProjectSwitch::kMessageMap =
    MessageMap::Make<nullptr, On<kReloadMessage, &ProjectSwitch::OnReload>>();

// The project that is left keeps its directory until its windows are gone: they fall back to it one by one.
bool ProjectSwitch::ChangeProject(const std::string& directory) {
  if (!windows_.QueryCloseAll()) return false;
  if (!directory.empty()) state_.settings.recentProjects.Add(directory);
  session_.Save();
  windows_.CloseAll();
  next_ = directory;
  frame_.Post(kReloadMessage);
  return true;
}

LRESULT ProjectSwitch::OnReload(WPARAM, LPARAM) {
  GlobalSettings before = state_.settings.global;
  Load();
  GlobalSettings& now = state_.settings.global;
  if (!state_.settings.project.directory.empty()) now.Set(kNoProject, false);
  frame_.Menus().ResetKeyTexts();
  keys_.Load();
  files_.ShowRecentFiles();
  ShowState();
  for (SettingsEffect effect : EffectsOfChange(before, now)) frame_.ApplyEffect(effect, !now.Has(kNoProject));
  state_.screenFont = ToLogFont(now.screenFont);
  session_.Restore();
  return 0;
}

// A project that is left takes its settings with it: what follows begins with what the program brings.
void ProjectSwitch::Load() {
  ProgramSettings& settings = state_.settings;
  if (!settings.project.directory.empty()) settings = {};
  settings.project.directory = next_;
  if (next_.empty()) EnterGlobalDirectory();
  LoadSettings(state_.files, state_.store, !next_.empty(), settings);
}

void ProjectSwitch::EnterGlobalDirectory() const {
  try {
    ChangeWorkingDirectory(WithoutTrailingSeparators(DirectoryPart(state_.initFile)));
  } catch (const CFileException&) {
    // The current one stays.
  }
}

void ProjectSwitch::ShowState() {
  frame_.GetBars().EnableProjectButtons(!state_.settings.project.directory.empty());
}

}  // namespace tarrow
