#include "tools/extraction/extract_dialog.h"

#include "base/path_text.h"
#include "base/words.h"
#include "edit/documents/file_dialogs.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <vector>

namespace tarrow {
namespace {

// Files as the field takes them: several of one directory as that and their names.
std::string FieldText(const std::vector<std::string>& paths) {
  std::string_view directory = DirectoryPart(paths.front());
  bool inOne =
      std::ranges::all_of(paths, [&](const std::string& p) { return DirectoryPart(p) == directory; });
  if (paths.size() == 1 || !inOne) return JoinWords(paths);
  std::vector<std::string> words = {std::string(WithoutTrailingSeparators(directory))};
  for (const std::string& path : paths) words.emplace_back(FileNamePart(path));
  return JoinWords(words);
}

}  // namespace

constinit const MessageMap CExtractDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnNotify<IDC_BINARY_FILES, EN_CHANGE, &CExtractDialog::OnFieldChanged>,
                     OnNotify<IDC_FILTER_PATTERN, EN_CHANGE, &CExtractDialog::OnFieldChanged>,
                     OnCommand<IDC_EXTRACT_BROWSE, &CExtractDialog::OnBrowse>>();

CExtractDialog::CExtractDialog(ExtractionRequest& request, bool patternIsWrong)
    : CDialog(IDD_EXTRACT_STRINGS), request_(request), patternIsWrong_(patternIsWrong) {}

bool CExtractDialog::OnInitDialog() {
  SetItemText(IDC_WORKING_DIRECTORY, WorkingDirectory());
  SetItemText(IDC_BINARY_FILES, request_.files);
  SetItemText(IDC_FILTER_PATTERN, request_.pattern);
  OnFieldChanged();
  if (!patternIsWrong_) return true;
  FocusItem(IDC_FILTER_PATTERN);
  return false;
}

// Without files or without a pattern there is nothing to extract.
void CExtractDialog::OnFieldChanged() {
  EnableItem(IDOK, !ItemText(IDC_BINARY_FILES).empty() && !ItemText(IDC_FILTER_PATTERN).empty());
}

void CExtractDialog::OnOk() {
  if (!::IsWindowEnabled(Item(IDOK))) return;
  request_ = {ItemText(IDC_BINARY_FILES), ItemText(IDC_FILTER_PATTERN)};
  Close(IDOK);
}

void CExtractDialog::OnBrowse() {
  std::vector<std::string> paths =
      RunPickFilesDialog(Handle(), LoadText(kTextBrowse), LoadText(kTextAllFilesFilter));
  if (!paths.empty()) SetItemText(IDC_BINARY_FILES, FieldText(paths));
  FocusItem(IDC_BINARY_FILES);
}

}  // namespace tarrow
