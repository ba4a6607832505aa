// OperationDesk: does the file manager's operations for the user: shows how far they are, puts the question
// before a file is replaced, lets the windows follow, and tells at the end what failed.
#pragma once

#include "edit/documents/documents.h"
#include "tools/file_manager/file_operations.h"
#include "ui/program/messages.h"
#include "ui/program/progress_box.h"
#include "ui/program/status_line.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace tarrow {

// Tells the user that what he cancelled has ended.
void TellCancelled(Messages& messages, StatusLine& status);

class OperationDesk final : public OperationOwner {
 public:
  // All of them outlive the desk. The boxes stand above `dialog`, which belongs to `frame`.
  OperationDesk(HWND frame, HWND dialog, Documents& documents, Messages& messages, StatusLine& status)
      : frame_(frame), dialog_(dialog), documents_(documents), messages_(messages), status_(status) {}

  // Does an operation on `count` files; string `title` says in the progress box what it is.
  void Do(int title, std::size_t count, const std::function<OperationReport(FileOperations&)>& operation);

  void OnFile(const std::string& path, std::size_t done) override;
  Progress& GetProgress() override { return *box_; }
  Answer MayReplace(const std::string& to, const FileState& old, const std::string& from,
                    const FileState& fresh) override;
  void OnMoved(const std::string& from, const std::string& to) override { documents_.FollowFile(from, to); }

 private:
  OperationReport Run(int title, std::size_t count,
                      const std::function<OperationReport(FileOperations&)>& operation);
  void Tell(const OperationReport& report, std::size_t count);

  HWND frame_, dialog_;
  Documents& documents_;
  Messages& messages_;
  StatusLine& status_;
  std::unique_ptr<CProgressBox> box_;  // while an operation runs
  std::size_t done_ = 0, count_ = 0;
};

}  // namespace tarrow
