#include "project/options/select_project_dialog.h"

#include "base/path_text.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/program/help_topics.h"

namespace tarrow {
namespace {

std::string WithoutBlanksAround(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

}  // namespace

const WORD CSelectProjectDialog::kTemplate = IDD_SELECT_PROJECT;

constinit const MessageMap CSelectProjectDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnNotify<IDC_PROJECT_PATH, CBN_EDITCHANGE, &CSelectProjectDialog::OnEdit>,
                     OnNotify<IDC_PROJECT_PATH, CBN_SELCHANGE, &CSelectProjectDialog::OnChoose>,
                     OnCommand<IDC_EXIT_PROJECT, &CSelectProjectDialog::OnExitProject>,
                     OnCommand<IDC_HELP_BUTTON, &CSelectProjectDialog::OnHelp>>();

bool CSelectProjectDialog::OnInitDialog() {
  HWND list = Item(IDC_PROJECT_PATH);
  ::SendMessageW(list, CB_LIMITTEXT, kMaxPath, 0);
  for (const std::string& path : recent_)
    if (!path.empty()) ::SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(path).c_str()));
  SetItemText(IDC_PROJECT_PATH, current_);
  EnableButtons(false, !current_.empty());
  return true;
}

void CSelectProjectDialog::EnableButtons(bool change, bool exit) {
  EnableItem(IDOK, change);
  EnableItem(IDC_EXIT_PROJECT, exit && !current_.empty());
}

void CSelectProjectDialog::OnEdit() {
  bool differs = LowerCase(ItemText(IDC_PROJECT_PATH)) != LowerCase(current_);
  EnableButtons(differs, differs);
}

void CSelectProjectDialog::OnChoose() {
  EnableButtons(true, true);
}

void CSelectProjectDialog::OnOk() {
  path_ = WithoutBlanksAround(ItemText(IDC_PROJECT_PATH));
  Close(IDOK);
}

void CSelectProjectDialog::OnExitProject() {
  path_.clear();
  Close(IDOK);
}

void CSelectProjectDialog::OnHelp() {
  help_.ShowHelp(Handle(), kSelectProjectTopic);
}

}  // namespace tarrow
