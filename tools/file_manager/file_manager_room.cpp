#include "tools/file_manager/file_manager_room.h"

#include "ui/commands/commands.h"

namespace tarrow {

constinit const MessageMap FileManagerRoom::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kFileManage, &FileManagerRoom::OnOpen>>();

FileManagerRoom::~FileManagerRoom() {
  if (dialog_) dialog_->Destroy();
}

void FileManagerRoom::OnOpen() {
  if (dialog_) {
    ::SetActiveWindow(dialog_->Handle());
    return;
  }
  dialog_ = new CFileManagerDialog(program_, state_, [this] { dialog_ = nullptr; });  // belongs to its window
  if (dialog_->CreateModeless(program_.frame.Handle())) return;
  dialog_ = nullptr;
  program_.messages.ReportOutOfMemory();
}

}  // namespace tarrow
