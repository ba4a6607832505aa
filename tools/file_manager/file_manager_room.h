// The room of Manage Files.
#pragma once

#include "framework/command_target.h"
#include "tools/file_manager/file_manager_dialog.h"

namespace tarrow {

class FileManagerRoom final : public CommandTarget {
 public:
  explicit FileManagerRoom(const FileManagerServices& program) : program_(program) {}
  ~FileManagerRoom() override;

  CFileManagerDialog* Dialog() const { return dialog_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnOpen();

  const FileManagerServices program_;
  FileManagerState state_;
  CFileManagerDialog* dialog_ = nullptr;  // belongs to its window
};

}  // namespace tarrow
