#include "shell/commands/changed_files.h"

#include "edit/documents/file_edit.h"
#include "ui/program/private_messages.h"

namespace tarrow {
namespace {

// The edit window in front that shows a file, or null.
CTwFileEdit* FileInFront(const CMDIFrameWnd& frame) {
  auto* edit = dynamic_cast<CTwFileEdit*>(frame.ActiveChild());
  return edit && !edit->Has(kUntitled) ? edit : nullptr;
}

}  // namespace

constinit const MessageMap ChangedFiles::kMessageMap =
    MessageMap::Make<nullptr, On<kInFrontMessage, &ChangedFiles::OnInFront>,
                     On<kFileLookedMessage, &ChangedFiles::OnFileLooked>>();

// Where many windows come to the front one after another, only the last is of interest.
LRESULT ChangedFiles::OnInFront(WPARAM, LPARAM) {
  MSG more;
  while (::PeekMessageW(&more, frame_.Handle(), kInFrontMessage, kInFrontMessage, PM_REMOVE)) continue;
  if (const CTwFileEdit* edit = FileInFront(frame_)) looker_.Ask(frame_.Handle(), edit->Path());
  return 0;
}

// While the mouse draws a selection the question waits. A program that is in the background again, or another
// window in front, will be looked at when its turn comes.
void ChangedFiles::OnIdle() {
  if (::GetCapture()) return;
  std::optional<FileLooker::Answer> answer = looker_.TakeAnswer();
  if (!answer || !::GetActiveWindow()) return;
  CTwFileEdit* edit = FileInFront(frame_);
  if (edit && edit->Path() == answer->path) edit->FileSeen(answer->look);
}

}  // namespace tarrow
