#include "project/commands/run_dialog.h"

#include "edit/documents/file_dialogs.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/program/string_ids.h"

namespace tarrow {
namespace {

// Starts the command line in the current directory; returns the system's error code, 0 for none.
DWORD Start(const RunRequest& request) {
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = request.minimised ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  std::wstring commandLine = ToWide(request.commandLine);
  if (!::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
    return ::GetLastError();
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return 0;
}

void ReportFailure(Messages& messages, const RunRequest& request, DWORD error) {
  std::string program = ProgramName(request.commandLine);
  if (error == ERROR_FILE_NOT_FOUND)
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCannotOpen, {program});
  else if (error == ERROR_BAD_FORMAT || error == ERROR_BAD_EXE_FORMAT)
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextBadExecutable, {program});
  else
    messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextCreateProcess, {error, request.commandLine});
}

}  // namespace

bool ProgramExists(const std::string& name) {
  wchar_t found[MAX_PATH];
  DWORD length = ::SearchPathW(nullptr, ToWide(name).c_str(), nullptr, MAX_PATH, found, nullptr);
  if (length == 0 || length >= MAX_PATH) return false;
  DWORD attributes = ::GetFileAttributesW(found);
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

void RunProgram(HWND frame, Messages& messages, RunRequest request, bool ask) {
  if ((ask || !request.valid) && CRunDialog(request).DoModal(frame) != IDOK) return;
  if (DWORD error = Start(request)) ReportFailure(messages, request, error);
}

constinit const MessageMap CRunDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDC_RUN_BROWSE, &CRunDialog::OnBrowse>>();

const DialogField CRunDialog::kFields[] = {TextField<&CRunDialog::commandLine_>(IDC_COMMAND_LINE),
                                           CheckField<&CRunDialog::minimised_>(IDC_RUN_MINIMIZED)};

CRunDialog::CRunDialog(RunRequest& request)
    : CDialog(IDD_RUN), request_(request), commandLine_(request.commandLine), minimised_(request.minimised) {}

std::span<const DialogField> CRunDialog::Fields() const {
  return kFields;
}

bool CRunDialog::OnInitDialog() {
  SetItemText(IDC_WORKING_DIRECTORY, WorkingDirectory());
  return true;
}

void CRunDialog::OnOk() {
  StoreFields();
  request_ = MakeRunRequest(commandLine_, ProgramExists);
  request_.minimised = minimised_;
  Close(IDOK);
}

// A name with a blank comes back in quotes, so that it stays one name.
void CRunDialog::OnBrowse() {
  std::optional<std::string> path = RunPickFileDialog(Handle(), "Browse", LoadText(kTextProgramFilter));
  if (!path) return;
  SetItemText(IDC_COMMAND_LINE, path->find(' ') == std::string::npos ? *path : '"' + *path + '"');
}

}  // namespace tarrow
