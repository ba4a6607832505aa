#include "search/files/grep_dialog.h"

#include "edit/documents/file_dialogs.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <utility>
#include <vector>

namespace tarrow {
namespace {

constexpr unsigned kGlobalSearchHelp = 3;

}  // namespace

constinit const MessageMap CGrepDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnNotify<IDC_SEARCH_FOR, EN_CHANGE, &CGrepDialog::OnFieldChanged>,
                     OnNotify<IDC_IN_FILES, EN_CHANGE, &CGrepDialog::OnFieldChanged>,
                     OnCommand<IDC_SEARCH_DEFAULTS, &CGrepDialog::OnDefaults>,
                     OnCommand<IDC_SEARCH_BROWSE, &CGrepDialog::OnBrowse>,
                     OnCommand<IDC_HELP_BUTTON, &CGrepDialog::OnHelp>>();

CGrepDialog::CGrepDialog(HWND frame, const ProjectOptions& options, Help& help)
    : CDialog(IDD_GLOBAL_SEARCH), frame_(frame), options_(options), help_(help) {
  request_.directory = WorkingDirectory();
}

bool CGrepDialog::OnInitDialog() {
  ShowDefaults();
  OnFieldChanged();
  return true;
}

void CGrepDialog::ShowDefaults() {
  SetItemText(IDC_IN_FILES, options_.Option(kOptionGrepFiles));
  SetItemText(IDC_IN_DIRECTORY, request_.directory);
  CheckItem(IDC_SEARCH_MATCH_CASE, request_.matchCase);
  CheckItem(IDC_SEARCH_WHOLE_WORD, request_.wholeWord);
  CheckItem(IDC_SEARCH_LIST_LINES, request_.listLines);
}

SearchRequest CGrepDialog::ReadFields() const {
  SearchRequest request;
  request.text = ItemText(IDC_SEARCH_FOR);
  request.files = ItemText(IDC_IN_FILES);
  request.directory = ItemText(IDC_IN_DIRECTORY);
  request.matchCase = ItemChecked(IDC_SEARCH_MATCH_CASE);
  request.wholeWord = ItemChecked(IDC_SEARCH_WHOLE_WORD);
  request.listLines = ItemChecked(IDC_SEARCH_LIST_LINES);
  return request;
}

void CGrepDialog::OnFieldChanged() {
  EnableItem(IDOK, CanSearch(ReadFields()));
}

void CGrepDialog::OnOk() {
  SearchRequest request = ReadFields();
  if (!CanSearch(request)) return;  // Enter comes here even while the button is grey
  request_ = std::move(request);
  ::SendMessageW(frame_, kGlobalSearchMessage, 0, reinterpret_cast<LPARAM>(this));
}

void CGrepDialog::OnCancel() {
  isClosing_ = true;
  ::SendMessageW(frame_, kGlobalSearchMessage, 0, reinterpret_cast<LPARAM>(this));
  Close(IDCANCEL);
}

void CGrepDialog::OnDefaults() {
  ShowDefaults();
}

void CGrepDialog::OnBrowse() {
  SearchRequest request = ReadFields();
  std::vector<std::string> paths =
      RunPickFilesDialog(Handle(), LoadText(kTextBrowse), LoadText(kTextAllFilesFilter));
  PutPickedFiles(paths, request);
  SetItemText(IDC_IN_FILES, request.files);
  SetItemText(IDC_IN_DIRECTORY, request.directory);
  FocusItem(IDC_IN_FILES);
}

void CGrepDialog::OnHelp() {
  help_.ShowHelp(Handle(), kGlobalSearchHelp);
  FocusItem(IDC_SEARCH_FOR);
}

void CGrepDialog::ComeBack(int field) {
  ::SetActiveWindow(Handle());
  if (field) FocusItem(field);
}

}  // namespace tarrow
