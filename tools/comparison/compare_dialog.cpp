#include "tools/comparison/compare_dialog.h"

#include "base/exceptions.h"
#include "base/words.h"
#include "edit/documents/file_dialogs.h"
#include "framework/directories.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

constexpr int kNameLimit = 260;

// A name may come in quotes, as other programs hand out paths.
std::string WithoutQuotes(std::string_view text) {
  return text.starts_with('"') ? TakeWord(text) : std::string(text);
}

}  // namespace

constinit const MessageMap CCompareDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnNotify<IDC_FIRST_FILE, EN_SETFOCUS, &CCompareDialog::OnFieldFocused>,
                     OnNotify<IDC_SECOND_FILE, EN_SETFOCUS, &CCompareDialog::OnFieldFocused>,
                     OnCommand<IDC_COMPARE_BROWSE, &CCompareDialog::OnBrowse>>();

CCompareDialog::CCompareDialog(ComparedFiles& files, Messages& messages)
    : CDialog(IDD_COMPARE_FILES), files_(files), messages_(messages), lastField_(IDC_FIRST_FILE) {}

bool CCompareDialog::OnInitDialog() {
  SetItemText(IDC_WORKING_DIRECTORY, WorkingDirectory());
  for (int field : {IDC_FIRST_FILE, IDC_SECOND_FILE})
    ::SendMessageW(Item(field), EM_LIMITTEXT, kNameLimit, 0);
  SetItemText(IDC_FIRST_FILE, files_.first);
  SetItemText(IDC_SECOND_FILE, files_.second);
  return true;
}

// Takes the full path of an existing file; tells the user of any other.
bool CCompareDialog::TakePath(int field, std::string& path) {
  std::string name = WithoutQuotes(ItemText(field));
  try {
    if (FileExists(name)) {
      path = FullPathLower(name);
      return true;
    }
  } catch (const CFileException&) {
    // A name that has no full path exists as little.
  }
  messages_.ShowMessageBox(Handle(), MB_ICONEXCLAMATION, kTextCannotOpen, {name});
  FocusItem(field);
  return false;
}

void CCompareDialog::OnOk() {
  ComparedFiles taken;
  if (!TakePath(IDC_FIRST_FILE, taken.first) || !TakePath(IDC_SECOND_FILE, taken.second)) return;
  if (taken.first == taken.second || SameFile(taken.first, taken.second)) {
    messages_.ShowMessageBox(Handle(), MB_ICONEXCLAMATION, kTextSameFile);
    return FocusItem(IDC_SECOND_FILE);
  }
  files_ = taken;
  Close(IDOK);
}

void CCompareDialog::OnBrowse() {
  int field = lastField_;
  auto path = RunPickFileDialog(Handle(), LoadText(kTextBrowse), LoadText(kTextAllFilesFilter));
  if (path) SetItemText(field, *path);
  FocusItem(field);
}

}  // namespace tarrow
