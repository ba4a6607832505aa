#include "base/path_text.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "tools/file_manager/file_manager_dialog.h"
#include "tools/file_manager/file_prompts.h"
#include "tools/file_manager/name_pattern.h"
#include "tools/file_manager/operation_desk.h"
#include "tools/file_manager/windows_file_disk.h"
#include "ui/program/string_ids.h"

#include <algorithm>

namespace tarrow {
namespace {

// More windows than this at once are hardly what was meant.
constexpr std::size_t kManyWindows = 20;

}  // namespace

void CFileManagerDialog::OnOpenFiles() {
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty()) return;
  if (paths.size() > kManyWindows && program_.messages.ShowMessageBox(Handle(), MB_YESNO | MB_ICONQUESTION,
                                                                      kTextOpenMany, {paths.size()}) != IDYES)
    return;
  {
    WaitState wait(program_.waiting, paths.size() > 1);
    for (const std::string& path : paths) program_.documents.OpenFile(path, false, false);
  }
  ::SetActiveWindow(program_.frame.Handle());
}

void CFileManagerDialog::OnCopy() {
  Transfer(false);
}

void CFileManagerDialog::OnMove() {
  Transfer(true);
}

void CFileManagerDialog::Transfer(bool moves) {
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty() || !OfferToSave(paths)) return;
  auto tasks = AskForTarget(paths, moves);
  if (!tasks) return;
  Do(moves ? kTextMovingFiles : kTextCopyingFiles, tasks->size(),
     [&](FileOperations& files) { return moves ? files.Move(*tasks) : files.Copy(*tasks); });
}

std::optional<std::vector<FileTask>> CFileManagerDialog::AskForTarget(const std::vector<std::string>& paths,
                                                                      bool moves) {
  CTargetDialog dialog(LoadText(moves ? kTextMove : kTextCopy), SubjectOf(paths), state_.directory);
  for (dialog.target = state_.target;;) {
    if (dialog.DoModal(Handle()) != IDOK) return {};
    if (auto tasks = ReadTargetOf(paths, dialog.target)) {
      state_.target = dialog.target;
      return tasks;
    }
  }
}

// The tasks that bring the files to where `text` says; nothing, of which the user has been told, when it is
// no place. A directory that does not exist is made if the user wants that.
std::optional<std::vector<FileTask>> CFileManagerDialog::ReadTargetOf(const std::vector<std::string>& paths,
                                                                      const std::string& text) {
  WindowsFileDisk disk;
  auto target = ReadTarget(disk, text, state_.directory, paths.size());
  if (!target) {
    Refuse(kTextBadTarget, {text});
    return {};
  }
  if (target->isMissing) {
    if (program_.messages.ShowMessageBox(Handle(), MB_YESNO | MB_ICONQUESTION, kTextMakeDirectory,
                                         {target->directory}) != IDYES)
      return {};
    try {
      MakeDirectories(target->directory);
    } catch (const CFileException& failure) {
      program_.messages.ShowFileError(Handle(), failure);
      return {};
    }
  }
  return PlanTransfer(paths, *target);
}

void CFileManagerDialog::OnRename() {
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty() || !OfferToSave(paths)) return;
  auto tasks = AskForNames(paths);
  if (!tasks) return;
  Do(kTextRenamingFiles, tasks->size(), [&](FileOperations& files) { return files.Move(*tasks); });
}

std::optional<std::vector<FileTask>> CFileManagerDialog::AskForNames(const std::vector<std::string>& paths) {
  CRenameDialog dialog(SubjectOf(paths));
  dialog.from = dialog.to = paths.size() == 1 ? FileNamePart(paths[0]) : "*.*";
  for (;;) {
    if (dialog.DoModal(Handle()) != IDOK) return {};
    if (auto tasks = ReadNames(paths, dialog.from, dialog.to)) return tasks;
  }
}

std::optional<std::vector<FileTask>> CFileManagerDialog::ReadNames(const std::vector<std::string>& paths,
                                                                   const std::string& from,
                                                                   const std::string& to) {
  if (!HasWildcardsFor(from, to)) {
    Refuse(kTextTooManyWildcards, {to, from});
    return {};
  }
  std::vector<FileTask> tasks = PlanRename(paths, from, to);
  if (tasks.empty()) {
    Refuse(kTextNothingMatches, {from});
    return {};
  }
  auto bad = std::ranges::find_if_not(tasks, [](const FileTask& task) {
    return task.to.starts_with(DirectoryPart(task.from)) &&
           IsFileName(task.to.substr(DirectoryLength(task.from)));
  });
  if (bad == tasks.end()) return tasks;
  Refuse(kTextBadNewName, {bad->to.substr(DirectoryLength(bad->from))});
  return {};
}

void CFileManagerDialog::OnDelete() {
  Delete(Removal::kRecycle);
}

// All the files are on the drive of the directory.
void CFileManagerDialog::Delete(Removal removal) {
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty()) return;
  if (!HasRecycleBin(WindowsFileDisk::Drive(state_.directory))) removal = Removal::kForGood;
  bool recycles = removal == Removal::kRecycle;
  constexpr UINT kBox = MB_YESNO | MB_ICONQUESTION;
  int answer =
      paths.size() == 1
          ? program_.messages.ShowMessageBox(Handle(), kBox, recycles ? kTextRecycleOne : kTextDeleteOne,
                                             {FileNamePart(paths[0])})
          : program_.messages.ShowMessageBox(Handle(), kBox, recycles ? kTextRecycleMany : kTextDeleteMany,
                                             {paths.size()});
  if (answer != IDYES) return;
  Do(kTextDeletingFiles, paths.size(), [&](FileOperations& files) { return files.Delete(paths, removal); });
}

void CFileManagerDialog::OnTouch() {
  std::vector<std::size_t> rows = list_.ChosenRows();
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty() || !OfferToSave(paths)) return;
  CTouchDialog dialog(SubjectOf(paths), list_.Table()[rows[0]].entry.modified);
  if (dialog.DoModal(Handle()) != IDOK) return;
  Do(kTextTouchingFiles, paths.size(),
     [&](FileOperations& files) { return files.Touch(paths, dialog.Time()); });
  for (const std::string& path : paths) program_.documents.FileIsOurs(path);
}

void CFileManagerDialog::OnAttributes() {
  std::vector<std::string> paths = list_.ChosenPaths();
  if (paths.empty() || !OfferToSave(paths)) return;
  std::uint32_t all = ~0u, any = 0;
  for (std::size_t row : list_.ChosenRows()) {
    all &= list_.Table()[row].entry.attributes;
    any |= list_.Table()[row].entry.attributes;
  }
  CAttributesDialog dialog(SubjectOf(paths), all, any);
  if (dialog.DoModal(Handle()) != IDOK) return;
  Do(kTextChangingAttributes, paths.size(),
     [&](FileOperations& files) { return files.ChangeAttributes(paths, dialog.Set(), dialog.Clear()); });
}

// What is modified in a window is saved first, or left alone, as the user says.
bool CFileManagerDialog::OfferToSave(const std::vector<std::string>& paths) {
  return std::ranges::all_of(paths, [&](const std::string& path) {
    return program_.documents.OfferToSaveFile(path, kTextSaveBeforeContinuing);
  });
}

std::string CFileManagerDialog::SubjectOf(const std::vector<std::string>& paths) const {
  return paths.size() == 1 ? FormatTextResource(kTextOneFile, {FileNamePart(paths[0])})
                           : FormatTextResource(kTextManyFiles, {paths.size()});
}

void CFileManagerDialog::Do(int title, std::size_t count,
                            const std::function<OperationReport(FileOperations&)>& operation) {
  OperationDesk(program_.frame.Handle(), Handle(), program_.documents, program_.messages, program_.status)
      .Do(title, count, operation);
  ListAgain();
  FocusItem(IDC_MANAGED_LIST);
}

void CFileManagerDialog::Refuse(int message, std::initializer_list<FormatArg> args) {
  program_.messages.ShowMessageBox(Handle(), MB_ICONEXCLAMATION, message, args);
}

}  // namespace tarrow
