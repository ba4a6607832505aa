#include "shell/state/project_store.h"

#include "project/options/options.h"
#include "ui/program/string_table.h"

namespace tarrow {

std::string ProjectStore::Option(ProjectOption option) const {
  std::string value;
  if (store_.ReadString(Section(), OptionKey(option), value)) return value;
  return std::string(OptionPreset(option, Environment()));
}

void ProjectStore::WriteOption(std::string_view key, std::string_view value) {
  store_.WriteString(Section(), key, value);
}

void ProjectStore::RemoveOption(std::string_view key, bool inFile) {
  store_.RemoveKey(Section(), key);
  if (!inFile || Directory().empty()) return;
  IniText file = files_.ReadProject();
  file.RemoveKey(store_.SectionName(Section()), key);
  files_.WriteProject(file);
}

std::string ProjectStore::ProjectValue(int key) const {
  std::string value;
  (void)store_.ReadString(kProjectSection, FindText(key), value);
  return value;
}

void ProjectStore::WriteProjectValue(int key, std::string_view value) {
  store_.WriteString(kProjectSection, FindText(key), value);
}

}  // namespace tarrow
