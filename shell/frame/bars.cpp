#include "shell/frame/bars.h"

#include "edit/documents/child.h"

#include <algorithm>

namespace tarrow {

void Bars::Create() {
  if (!settings_.Has(kNoToolBar)) CreateToolBar(!settings_.Has(kNoProject));
  if (!settings_.Has(kNoStatusBar)) CreateStatusBar();
}

void Bars::CreateToolBar(bool withProject) {
  auto query = [this](UINT id, CommandState& state) { return frame_.QueryCommand(id, state); };
  auto itemText = [this](UINT id) { return menus_.ItemText(id); };
  if (!tools_.CreateBar(frame_.Handle(), withProject, query, itemText)) messages_.ReportOutOfMemory();
  EnableProjectButtons(projectEnabled_);
}

void Bars::CreateStatusBar() {
  if (!status_.CreateBar(frame_.Handle())) return;
  status_.SetAutoSave(settings_.Has(kSaveWithoutAsking));
  status_.SwitchClock(!settings_.Has(kNoClock));
  if (auto* child = dynamic_cast<CTwChild*>(frame_.ActiveChild())) child->PublishState();
}

RECT Bars::Layout(RECT area) {
  if (tools_.Exists()) {
    int height = tools_.HeightFor(static_cast<int>(area.right));
    ::MoveWindow(tools_.Handle(), 0, 0, area.right, height, TRUE);
    area.top = height;
  }
  if (status_.Exists()) {
    area.bottom -= status_.Height();
    ::MoveWindow(status_.Handle(), 0, area.bottom, area.right, status_.Height(), TRUE);
  }
  area.bottom = std::max(area.top, area.bottom);
  return area;
}

void Bars::Apply(SettingsEffect effect, bool projectButtons) {
  switch (effect) {
    case SettingsEffect::kRebuildToolBar:
      tools_.Destroy();
      if (!settings_.Has(kNoToolBar)) CreateToolBar(projectButtons);
      break;
    case SettingsEffect::kShowStatusBar:
      CreateStatusBar();
      break;
    case SettingsEffect::kHideStatusBar:
      status_.Destroy();
      break;
    case SettingsEffect::kStartClock:
      status_.SwitchClock(true);
      break;
    case SettingsEffect::kStopClock:
      status_.SwitchClock(false);
      break;
    case SettingsEffect::kUpdateProjectButtons:
      tools_.ShowProjectButtons(!settings_.Has(kNoProject));
      break;
    case SettingsEffect::kUpdateAutoSave:
      status_.SetAutoSave(settings_.Has(kSaveWithoutAsking));
      break;
    case SettingsEffect::kUpdateProjectMenu:
      break;  // no matter of the bars
  }
}

void Bars::UpdateButtons() {
  if (tools_.Exists()) tools_.UpdateButtons();
}

void Bars::EnableProjectButtons(bool enable) {
  projectEnabled_ = enable;
  if (tools_.Exists()) tools_.EnableProjectButtons(enable);
}

void Bars::ShowIdle() {
  if (status_.Exists()) status_.ShowIdle();
}

void Bars::OnActivate() {
  if (status_.Exists()) status_.UpdateKeyIndicators();
}

void Bars::OnSysColorChange() {
  if (status_.Exists()) status_.Send(WM_SYSCOLORCHANGE);
  if (tools_.Exists()) tools_.Send(WM_SYSCOLORCHANGE);
}

void Bars::OnTimeChange() {
  if (status_.Exists()) status_.RefreshClock();
}

void Bars::Destroy() {
  status_.Destroy();
  tools_.Destroy();
  settings_.Set(kNoStatusBar, true);
  settings_.Set(kNoToolBar, true);
}

void Bars::ShowStatus(std::string_view text, int seconds) {
  if (status_.Exists()) status_.ShowMessage(text, seconds);
}

void Bars::ShowStatusId(int id, int seconds) {
  if (status_.Exists()) status_.ShowMessageId(id, seconds);
}

void Bars::PublishCaret(int line, int column) {
  if (status_.Exists()) status_.SetCaret(line, column);
}

void Bars::PublishIndicator(Indicator indicator, int state) {
  if (status_.Exists()) status_.SetIndicator(indicator, state);
}

void Bars::PublishTask(std::string_view text) {
  if (status_.Exists()) status_.SetTask(text);
}

}  // namespace tarrow
