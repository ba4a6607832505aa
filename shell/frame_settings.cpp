// The frame's settings: the bars, the keys, and what follows when the user changes them.
#include "edit/file_edit.h"
#include "framework/unicode.h"
#include "project/options.h"
#include "shell/frame.h"
#include "ui/accelerators.h"
#include "ui/font_choice.h"
#include "ui/key_bindings.h"
#include "ui/string_table.h"

namespace tarrow {

void CTwFrame::CreateToolBar() {
  bool withProject = !Settings().Has(kNoProject);
  auto query = [this](UINT id, CommandState& state) { return QueryCommand(id, state); };
  if (!toolBar_.CreateBar(Handle(), withProject, query)) ReportOutOfMemory();
}

void CTwFrame::CreateStatusBar() {
  if (!statusBar_.CreateBar(Handle())) return;
  statusBar_.SetAutoSave(Settings().Has(kSaveWithoutAsking));
  statusBar_.SwitchClock(!Settings().Has(kNoClock));
}

void CTwFrame::LoadKeyBindings() {
  std::vector<KeyBindingEntry> entries;
  for (const std::string& key : program_.store.Keys(kKeyBindingsSection)) {
    std::string value;
    if (program_.store.ReadString(kKeyBindingsSection, key, value)) entries.push_back({key, value});
  }
  KeyBindingTable table;
  table.Load(DefaultKeyBindings());
  for (const KeyTextChange& change : tarrow::LoadKeyBindings(entries, table))
    menus_.SetKeyText(change.command, change.keyText);
  accelerators_ = CreateAccelerators(table.Entries());
}

std::string CTwFrame::FileFilter() const {
  int environment = program_.settings.project.environment;
  std::string filter;
  if (!program_.store.ReadString(kFirstOptionSection + environment, OptionKey(kOptionFileFilter), filter))
    filter = OptionPreset(kOptionFileFilter, environment);
  return filter.empty() ? std::string(FindText(kTextAllFilesFilter)) : filter;
}

void CTwFrame::OnIdle() {
  if (toolBar_.Exists()) toolBar_.UpdateButtons();
}

void CTwFrame::OnGlobalSettings() {}

}  // namespace tarrow
