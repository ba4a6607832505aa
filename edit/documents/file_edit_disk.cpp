// The file of an edit window on the disk, which other programs may change.
#include "edit/documents/file_changed_dialog.h"
#include "edit/documents/file_edit.h"
#include "edit/files/look_at_file.h"
#include "framework/text_resources.h"
#include "ui/program/string_ids.h"

#include <utility>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;

}  // namespace

void CTwFileEdit::FollowFile(std::string path) {
  CTwChild::FollowFile(std::move(path));
  TakeFileAsKnown();
}

void CTwFileEdit::TakeFileAsKnown() {
  if (!Has(kUntitled)) file_.Take(LookAtFile(Path()));
}

void CTwFileEdit::FileSeen(const FileLook& look) {
  switch (file_.OnLook(look, Has(kModified))) {
    case FileNews::kNone:
      return;
    case FileNews::kGone:
      SetModified(true);
      Program().status.ShowStatus(FormatTextResource(kTextFileDeleted, {Path()}), kStatusSeconds);
      return;
    case FileNews::kReloadOrKeep:
      if (AskAboutChange() == IDC_RELOAD)
        Reload();
      else
        file_.Keep(look);
      return;
    case FileNews::kOverwriteOrReload:
      (void)ResolveChange(look);
      return;
  }
}

// The system may end its session while the question stands: it is not put twice, and the text not lost.
int CTwFileEdit::AskAboutChange() {
  if (std::exchange(isAsking_, true)) return IDCANCEL;
  CFileChangedDialog question(Path(), Has(kModified));
  int answer = Program().messages.Ask(question);
  isAsking_ = false;
  return answer;
}

// What the user wants of a modified text whose file has changed; whether the text is saved then.
bool CTwFileEdit::ResolveChange(const FileLook& look) {
  switch (AskAboutChange()) {
    case IDC_OVERWRITE:
      file_.Keep(look);
      return WriteFile(Path());
    case IDC_RELOAD:
      Reload();
      return false;
    case IDC_SAVE_AS:
      return SaveAs();
    default:
      return false;
  }
}

bool CTwFileEdit::Save() {
  if (!Has(kModified)) return true;
  FileLook look = LookAtFile(Path());
  return file_.MustAskBeforeSave(look) ? ResolveChange(look) : WriteFile(Path());
}

}  // namespace tarrow
