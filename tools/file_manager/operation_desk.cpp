#include "tools/file_manager/operation_desk.h"

#include "framework/disabled_window.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "tools/file_manager/regional_text.h"
#include "tools/file_manager/windows_file_disk.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <utility>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;

// May this file be replaced? Closes with the button that was pressed.
class CReplaceDialog final : public CDialog {
 public:
  CReplaceDialog(std::string path, std::string oldFile, std::string newFile)
      : CDialog(IDD_FILE_REPLACE),
        path_(std::move(path)),
        oldFile_(std::move(oldFile)),
        newFile_(std::move(newFile)) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override {
    SetItemText(IDC_REPLACE_PATH, path_);
    SetItemText(IDC_REPLACE_OLD, oldFile_);
    SetItemText(IDC_REPLACE_NEW, newFile_);
    ::MessageBeep(MB_ICONQUESTION);
    return true;
  }

 private:
  void OnAnswer(UINT id) { Close(static_cast<int>(id)); }

  std::string path_, oldFile_, newFile_;
};

constinit const MessageMap CReplaceDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDYES, &CReplaceDialog::OnAnswer>,
                     OnCommand<IDNO, &CReplaceDialog::OnAnswer>,
                     OnCommand<IDC_REPLACE_YES_TO_ALL, &CReplaceDialog::OnAnswer>>();

// What failed, file by file.
class CReportDialog final : public CDialog {
 public:
  CReportDialog(const OperationReport& report, std::size_t count)
      : CDialog(IDD_FILE_REPORT), report_(report), count_(count) {}

 protected:
  bool OnInitDialog() override;

 private:
  const OperationReport& report_;
  std::size_t count_;
};

bool CReportDialog::OnInitDialog() {
  SetItemText(IDC_REPORT_LABEL, FormatTextResource(kTextFailures, {report_.failures.size(), count_}));
  HWND list = Item(IDC_REPORT_LIST);
  std::size_t longest = 0;
  for (const OperationFailure& failure : report_.failures) {
    std::wstring row = ToWide(FormatTextResource(kTextFailure, {failure.path, LoadText(failure.message)}));
    ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
    longest = std::max(longest, row.size());
  }
  constexpr std::size_t kWidestCharacter = 9;  // pixels, on the generous side
  ::SendMessageW(list, LB_SETHORIZONTALEXTENT, longest * kWidestCharacter, 0);
  ::MessageBeep(MB_ICONEXCLAMATION);
  return true;
}

std::string Describe(int id, const FileState& state) {
  return FormatTextResource(id, {CountText(state.size), TimeText(state.modified)});
}

}  // namespace

void TellCancelled(Messages& messages, StatusLine& status) {
  messages.Alert(MB_ICONHAND);
  status.ShowStatusId(kTextCancelled, kStatusSeconds);
}

// Nothing else of the program takes input before the operation is over, the questions in between included.
// The box goes after that: where all windows below it are disabled, the system brings another program to the
// front.
OperationReport OperationDesk::Run(int title, std::size_t count,
                                   const std::function<OperationReport(FileOperations&)>& operation) {
  count_ = count;
  box_ = std::make_unique<CProgressBox>(dialog_, LoadText(title));
  box_->SetWhole(static_cast<std::int64_t>(count));
  box_->SetCounts([this] { return FormatTextResource(kTextFilesDone, {done_, count_}); });
  WindowsFileDisk disk;
  FileOperations operations(disk, *this);
  OperationReport report = [&] {
    DisabledWindow frame(frame_), dialog(dialog_);
    return operation(operations);
  }();
  box_.reset();
  return report;
}

void OperationDesk::Do(int title, std::size_t count,
                       const std::function<OperationReport(FileOperations&)>& operation) {
  OperationReport report = Run(title, count, operation);
  ::SetActiveWindow(dialog_);
  Tell(report, count);
}

void OperationDesk::Tell(const OperationReport& report, std::size_t count) {
  if (!report.failures.empty()) CReportDialog(report, count).DoModal(dialog_);
  if (!report.cancelled)
    return status_.ShowStatus(FormatTextResource(kTextFilesDealtWith, {report.done, count - report.done}),
                              kStatusSeconds);
  TellCancelled(messages_, status_);
}

void OperationDesk::OnFile(const std::string& path, std::size_t done) {
  box_->SetWork(path);
  box_->SetDone(static_cast<std::int64_t>(done));
  done_ = done;
}

OperationOwner::Answer OperationDesk::MayReplace(const std::string& to, const FileState& old,
                                                 const std::string&, const FileState& fresh) {
  CReplaceDialog question(to, Describe(kTextOldFile, old), Describe(kTextNewFile, fresh));
  switch (question.DoModal(box_->Exists() ? box_->Handle() : dialog_)) {
    case IDYES:
      return Answer::kYes;
    case IDC_REPLACE_YES_TO_ALL:
      return Answer::kYesToAll;
    case IDNO:
      return Answer::kNo;
    default:
      return Answer::kCancel;
  }
}

}  // namespace tarrow
