// The file manager: lists files by a directory and patterns, and copies, moves, renames, deletes and touches
// those that are chosen.
//
// It stays open while one works: modeless, of any size, with everything on keys. Enter in a field lists, in
// the list it opens; Delete, F2, F5 and Ctrl+A do there what one expects of them.
#pragma once

#include "edit/documents/documents.h"
#include "framework/dialog.h"
#include "framework/dialog_layout.h"
#include "framework/mdi.h"
#include "tools/file_manager/file_list_view.h"
#include "tools/file_manager/file_operations.h"
#include "ui/program/messages.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarrow {

// What the file manager needs of the program; all of them outlive it.
struct FileManagerServices {
  CMDIFrameWnd& frame;
  Documents& documents;
  Messages& messages;
  StatusLine& status;
  Waiting& waiting;
};

// What is kept from one opening to the next.
struct FileManagerState {
  std::string directory;  // empty: the current one
  std::string patterns = "*.*";
  std::string target;  // of the last copy or move
  std::optional<RECT> place;
};

class CFileManagerDialog final : public CDialog {
 public:
  // `state` outlives the dialog, which lives until its window is gone, calls `closed` and deletes itself.
  CFileManagerDialog(const FileManagerServices& program, FileManagerState& state,
                     std::function<void()> closed);

  const FileListView& List() const { return list_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override { OnRefresh(); }
  void OnFinalMessage() override { delete this; }

 private:
  // file_manager_dialog.cpp: the window and its list.
  void OnSize(UINT kind, int width, int height);
  LRESULT OnGetMinMaxInfo(WPARAM w, LPARAM l);
  LRESULT OnNotifyMessage(WPARAM w, LPARAM l);
  LRESULT OnChoiceChanged(WPARAM w, LPARAM l);
  void OnDestroy();
  void OnRefresh();
  void OnBrowse();
  void ChoiceChanges();
  void OnListKey(UINT key);
  bool List(const std::string& directory, const std::string& patterns);
  void ListAgain();
  bool Show(const std::string& directory, const std::string& patterns);
  std::vector<ListedFile> Find(const std::string& directory, const std::string& patterns);
  void SetDefaultButton(int id);
  void OnTimer(UINT_PTR id);
  void ShowCounts();
  void ShowChosen(bool withBytes);

  // file_manager_commands.cpp: what is done with the files.
  void OnOpenFiles();
  void OnCopy();
  void OnMove();
  void OnRename();
  void OnDelete();
  void OnTouch();
  void OnAttributes();
  void Delete(Removal removal);
  void Transfer(bool moves);
  std::optional<std::vector<FileTask>> AskForTarget(const std::vector<std::string>& paths, bool moves);
  std::optional<std::vector<FileTask>> ReadTargetOf(const std::vector<std::string>& paths,
                                                    const std::string& text);
  std::optional<std::vector<FileTask>> AskForNames(const std::vector<std::string>& paths);
  std::optional<std::vector<FileTask>> ReadNames(const std::vector<std::string>& paths,
                                                 const std::string& from, const std::string& to);
  bool OfferToSave(const std::vector<std::string>& paths);
  std::string SubjectOf(const std::vector<std::string>& paths) const;
  void Do(int title, std::size_t count, const std::function<OperationReport(FileOperations&)>& operation);
  void Refuse(int message, std::initializer_list<FormatArg> args);

  const FileManagerServices program_;
  FileManagerState& state_;
  std::function<void()> closed_;
  FileListView list_;
  DialogLayout layout_;
  bool countsAreOld_ = false;
};

}  // namespace tarrow
