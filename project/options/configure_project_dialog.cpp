#include "project/options/configure_project_dialog.h"

#include "framework/handle.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/program/help_topics.h"
#include "ui/program/string_ids.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr int kTargetLimit = 20;  // characters; so it has always been
constexpr int kListMargin = 8;    // pixels behind the widest line

int TextWidth(HWND window, const std::wstring& text) {
  ClientDc dc(window);
  SelectedObject font(dc, reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0)));
  SIZE size{};
  ::GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace

constinit const MessageMap CConfigureProjectDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnNotify<IDC_OPTIONS, LBN_SELCHANGE, &CConfigureProjectDialog::OnSelectOption>,
                     OnNotify<IDC_ENVIRONMENT, CBN_SELCHANGE, &CConfigureProjectDialog::OnSelectEnvironment>,
                     OnNotify<IDC_OPTION_NAME, EN_CHANGE, &CConfigureProjectDialog::OnEditName>,
                     OnNotify<IDC_OPTION_SETTING, EN_CHANGE, &CConfigureProjectDialog::OnEditSetting>,
                     OnCommand<IDC_SET_OPTION, &CConfigureProjectDialog::OnSet>,
                     OnCommand<IDC_HELP_BUTTON, &CConfigureProjectDialog::OnHelp>>();

const DialogField CConfigureProjectDialog::kFields[] = {
    TextField<&CConfigureProjectDialog::target_>(IDC_TARGET, kTargetLimit),
    TextField<&CConfigureProjectDialog::arguments_>(IDC_TEST_ARGUMENTS),
    CheckField<&CConfigureProjectDialog::debugBuild_>(IDC_DEBUG_BUILD)};

CConfigureProjectDialog::CConfigureProjectDialog(ProjectSettings& settings, Messages& messages, Help& help)
    : CDialog(IDD_CONFIGURE_PROJECT),
      settings_(settings),
      messages_(messages),
      help_(help),
      target_(settings.ProjectValue(kTextKeyTarget)),
      arguments_(settings.ProjectValue(kTextKeyTestArgs)),
      debugBuild_(settings.DebugBuild()) {}

std::span<const DialogField> CConfigureProjectDialog::Fields() const {
  return kFields;
}

bool CConfigureProjectDialog::OnInitDialog() {
  SetItemText(IDC_CONFIGURE_PATH, settings_.Directory());
  FillEnvironments();
  FillOptions();
  return true;
}

void CConfigureProjectDialog::FillEnvironments() {
  HWND list = Item(IDC_ENVIRONMENT);
  std::string names = LoadText(kTextEnvironments);
  for (std::size_t start = 0, end; (end = names.find('|', start)) != names.npos; start = end + 1)
    ::SendMessageW(list, CB_ADDSTRING, 0,
                   reinterpret_cast<LPARAM>(ToWide(names.substr(start, end - start)).c_str()));
  ::SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(settings_.Environment()), 0);
}

void CConfigureProjectDialog::FillOptions() {
  HWND list = Item(IDC_OPTIONS);
  RedrawOff off(list);
  ::SendMessageW(list, LB_RESETCONTENT, 0, 0);
  listWidth_ = 0;
  lines_ = ListOptions(settings_);
  for (const OptionLine& line : lines_) {
    ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(line.Text()).c_str()));
    MakeRoomFor(line.Text());
  }
  SelectLine(0);
  ShowOption(0);
}

void CConfigureProjectDialog::MakeRoomFor(const std::string& text) {
  HWND list = Item(IDC_OPTIONS);
  listWidth_ = std::max(listWidth_, TextWidth(list, ToWide(text)) + kListMargin);
  ::SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(listWidth_), 0);
}

void CConfigureProjectDialog::SelectLine(int line) {
  ::SendMessageW(Item(IDC_OPTIONS), LB_SETCURSEL, static_cast<WPARAM>(line), 0);
}

// Puts a line of the list into the fields; -1 empties them.
void CConfigureProjectDialog::ShowOption(int line) {
  OptionLine option =
      line < 0 ? OptionLine() : SplitOptionLine(lines_[static_cast<std::size_t>(line)].Text());
  isFilling_ = true;
  SetItemText(IDC_OPTION_NAME, option.name);
  SetItemText(IDC_OPTION_SETTING, option.value);
  isFilling_ = false;
  EnableItem(IDC_SET_OPTION, false);
}

void CConfigureProjectDialog::OnSelectOption() {
  ShowOption(static_cast<int>(::SendMessageW(Item(IDC_OPTIONS), LB_GETCURSEL, 0, 0)));
}

void CConfigureProjectDialog::OnSelectEnvironment() {
  auto chosen = static_cast<int>(::SendMessageW(Item(IDC_ENVIRONMENT), CB_GETCURSEL, 0, 0));
  if (chosen < 0) return;
  settings_.SetEnvironment(chosen);
  FillOptions();
}

void CConfigureProjectDialog::OnEditName() {
  if (isFilling_) return;
  std::string name = ItemText(IDC_OPTION_NAME);
  if (name.find('=') != name.npos) {
    messages_.ShowMessageBox(Handle(), MB_ICONSTOP, kTextNotAllowedHere, {"="});
    FocusItem(IDC_OPTION_NAME);
    EnableItem(IDC_SET_OPTION, false);
    return;
  }
  std::optional<std::size_t> line = FindOptionLine(lines_, name);
  SelectLine(line ? static_cast<int>(*line) : -1);
}

void CConfigureProjectDialog::OnEditSetting() {
  if (!isFilling_) EnableItem(IDC_SET_OPTION, !ItemText(IDC_OPTION_NAME).empty());
}

// The button that is pressed becomes grey, so the focus goes to the list, where the next option is chosen.
void CConfigureProjectDialog::OnSet() {
  OptionLine line{ItemText(IDC_OPTION_NAME), ItemText(IDC_OPTION_SETTING)};
  if (line.name.empty() || line.name.find('=') != line.name.npos) return;
  settings_.WriteOption(line.name, line.value);
  FocusItem(IDC_OPTIONS);
  PutLine(line);
}

void CConfigureProjectDialog::PutLine(const OptionLine& line) {
  HWND list = Item(IDC_OPTIONS);
  std::optional<std::size_t> place = FindOptionLine(lines_, line.name);
  std::size_t at = place.value_or(lines_.size());
  if (place) {
    lines_[at] = line;
    ::SendMessageW(list, LB_DELETESTRING, at, 0);
  } else {
    lines_.push_back(line);
  }
  ::SendMessageW(list, LB_INSERTSTRING, at, reinterpret_cast<LPARAM>(ToWide(line.Text()).c_str()));
  MakeRoomFor(line.Text());
  SelectLine(static_cast<int>(at));
  ShowOption(static_cast<int>(at));
}

void CConfigureProjectDialog::OnOk() {
  StoreFields();
  settings_.WriteProjectValue(kTextKeyTarget, target_);
  settings_.WriteProjectValue(kTextKeyTestArgs, arguments_);
  settings_.SetDebugBuild(debugBuild_);
  Close(IDOK);
}

void CConfigureProjectDialog::OnHelp() {
  help_.ShowHelp(Handle(), kConfigureProjectTopic);
}

}  // namespace tarrow
